#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "linguistics/text_view_hash.h"

namespace tessarin {

// One loaded spelling dictionary. Words go in and out as UTF-16 and are converted to the
// dictionary's own encoding. The answer for each distinct word is kept, since a story says
// the same words again and again.
class HunspellSpeller {
  public:
    // Loads base + ".aff" and base + ".dic"; nothing when either file cannot be read.
    static std::unique_ptr<HunspellSpeller> Open(const std::filesystem::path& base);
    ~HunspellSpeller();

    bool Known(std::u16string_view word);
    std::vector<std::u16string> Suggestions(std::u16string_view word);
    // Makes the word known until the speller is closed.
    void Add(std::u16string_view word);

  private:
    struct Engine;
    explicit HunspellSpeller(std::unique_ptr<Engine> engine);

    std::unique_ptr<Engine> engine_;
    std::unordered_map<std::u16string, bool, TextViewHash, std::equal_to<>> known_;
};

}  // namespace tessarin
