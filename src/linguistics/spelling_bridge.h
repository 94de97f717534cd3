#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "linguistics/checked_words.h"
#include "linguistics/hunspell_speller.h"
#include "text/styled_text.h"

namespace tessarin {

// What a run of the spelling checker needs to start.
struct SpellingSettings {
    std::string language;  // the configuration's Language; empty: the locale's
    bool ignoreUppercase = false;
    bool alwaysSuggest = true;
    std::filesystem::path personalDictionary;  // one word a line, UTF-8
    std::vector<std::filesystem::path> dictionaryFolders;
};

// The personal dictionary kept in the application directory.
std::filesystem::path PersonalDictionaryPath(const std::filesystem::path& appDir);

class SpellingBridge;

// An unknown word that the user is asked about.
struct SpellingQuestion {
    SpellingBridge& bridge;
    int box;                 // the text box the text comes from, -1 for another text
    const StyledText& text;  // the text as corrected so far
    CheckedWord word;
    std::u16string spelling;
    std::vector<std::u16string> suggestions;  // empty unless the settings always suggest
};

enum class SpellingAction { Ignore, IgnoreAll, Replace, AddToDictionary, Stop };

struct SpellingDecision {
    SpellingAction action = SpellingAction::Ignore;
    std::u16string replacement;  // for Replace
};

using SpellingReviewer = std::function<SpellingDecision(const SpellingQuestion&)>;

// The checker's bridge: start, correct one text at a time, stop. Words that the dictionary,
// the personal dictionary or an "ignore all" of this run know pass; note anchors are never
// looked at nor changed; a replaced word takes the format of its first character, so that
// the rest of the text keeps its formatting.
class SpellingBridge {
  public:
    // Loads the dictionary of the language (the locale's when the configured one is empty
    // or has none) and the personal words. Returns the problem to show; empty when ready.
    std::string Start(const SpellingSettings& settings);
    bool Started() const { return speller_ != nullptr; }

    // The text with the reviewer's decisions applied to its unknown words, in text order;
    // box tells the questions where the text comes from. stopped becomes true when the
    // reviewer stopped the run.
    StyledText Correct(const StyledText& text, int box, const SpellingReviewer& reviewer,
                       bool& stopped);

    // The unknown words of a text, in text order.
    std::vector<CheckedWord> UnknownWords(const StyledText& text);

    bool Known(std::u16string_view word);
    std::vector<std::u16string> Suggestions(std::u16string_view word);
    void IgnoreAll(std::u16string_view word);
    // Adds the word to the personal dictionary file; false (and the word is still known for
    // this run) when the file cannot be written.
    bool AddToDictionary(std::u16string_view word);
    // What went wrong since the start without stopping the run (a personal dictionary that
    // could not be written); empty when nothing did.
    const std::string& Problem() const { return problem_; }

    void Stop();

  private:
    std::unique_ptr<HunspellSpeller> speller_;
    SpellingSettings settings_;
    std::set<std::u16string, std::less<>> ignored_;
    std::string problem_;
};

}  // namespace tessarin
