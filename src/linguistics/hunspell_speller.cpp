#include "linguistics/hunspell_speller.h"

#include <hunspell.hxx>

#include <fstream>

#include "common/utf8.h"
#include "common/windows1252.h"

namespace tessarin {

struct HunspellSpeller::Engine {
    Engine(const std::string& affix, const std::string& dictionary)
        : hunspell(affix.c_str(), dictionary.c_str()),
          utf8(hunspell.get_dict_encoding() == "UTF-8") {}

    // Dictionaries that are not UTF-8 are in an 8-bit Latin code page.
    std::string Encode(std::u16string_view word) const {
        return utf8 ? Utf16ToUtf8(word) : Utf8ToWindows1252(Utf16ToUtf8(word));
    }
    std::u16string Decode(const std::string& word) const {
        return Utf8ToUtf16(utf8 ? word : Windows1252ToUtf8(word));
    }

    Hunspell hunspell;
    bool utf8;
};

std::unique_ptr<HunspellSpeller> HunspellSpeller::Open(const std::filesystem::path& base) {
    const std::filesystem::path affix = std::filesystem::path(base).concat(".aff");
    const std::filesystem::path dictionary = std::filesystem::path(base).concat(".dic");
    // Hunspell reports unreadable files only on its error stream: check them first.
    if (!std::ifstream(affix).good() || !std::ifstream(dictionary).good()) return nullptr;
    return std::unique_ptr<HunspellSpeller>(
        new HunspellSpeller(std::make_unique<Engine>(affix.string(), dictionary.string())));
}

HunspellSpeller::HunspellSpeller(std::unique_ptr<Engine> engine) : engine_(std::move(engine)) {}

HunspellSpeller::~HunspellSpeller() = default;

bool HunspellSpeller::Known(std::u16string_view word) {
    if (const auto found = known_.find(word); found != known_.end()) return found->second;
    const bool known = engine_->hunspell.spell(engine_->Encode(word));
    known_.emplace(word, known);
    return known;
}

std::vector<std::u16string> HunspellSpeller::Suggestions(std::u16string_view word) {
    std::vector<std::u16string> suggestions;
    for (const std::string& suggestion : engine_->hunspell.suggest(engine_->Encode(word)))
        suggestions.push_back(engine_->Decode(suggestion));
    return suggestions;
}

void HunspellSpeller::Add(std::u16string_view word) {
    engine_->hunspell.add(engine_->Encode(word));
    known_[std::u16string(word)] = true;
}

}  // namespace tessarin
