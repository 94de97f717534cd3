#include "linguistics/spelling_bridge.h"

#include <optional>

#include "common/file_io.h"
#include "common/utf8.h"
#include "linguistics/dictionary_location.h"
#include "linguistics/word_list_file.h"

namespace tessarin {
namespace {

std::string MissingDictionaryMessage(const SpellingSettings& settings) {
    std::string message = "No spelling dictionary for the language \"" + settings.language +
                          "\" nor for the locale's \"" + LocaleLanguage() + "\" in:";
    for (const std::filesystem::path& folder : settings.dictionaryFolders)
        message += "\n" + folder.string();
    return message;
}

}  // namespace

std::filesystem::path PersonalDictionaryPath(const std::filesystem::path& appDir) {
    return appDir / "PersonalDictionary.txt";
}

std::string SpellingBridge::Start(const SpellingSettings& settings) {
    Stop();
    settings_ = settings;
    std::optional<std::filesystem::path> dictionary;
    if (!settings.language.empty())
        dictionary = FindDictionary(settings.language, settings.dictionaryFolders);
    if (!dictionary) dictionary = FindDictionary(LocaleLanguage(), settings.dictionaryFolders);
    if (!dictionary) return MissingDictionaryMessage(settings);
    speller_ = HunspellSpeller::Open(*dictionary);
    if (!speller_) return "The spelling dictionary " + dictionary->string() + " cannot be read.";
    if (const auto personal = ReadWordListLines(settings.personalDictionary)) {
        for (const std::string& word : *personal)
            speller_->Add(Utf8ToUtf16(word));
    }
    return {};
}

bool SpellingBridge::Known(std::u16string_view word) {
    if (settings_.ignoreUppercase && IsUpperCaseWord(word)) return true;
    if (ignored_.contains(word)) return true;
    return speller_->Known(word);
}

std::vector<std::u16string> SpellingBridge::Suggestions(std::u16string_view word) {
    return speller_->Suggestions(word);
}

void SpellingBridge::IgnoreAll(std::u16string_view word) {
    ignored_.emplace(word);
}

bool SpellingBridge::AddToDictionary(std::u16string_view word) {
    speller_->Add(word);
    std::string content = ReadFileBytes(settings_.personalDictionary).value_or("");
    if (!content.empty() && content.back() != '\n') content += '\n';
    content += Utf16ToUtf8(word) + '\n';
    if (WriteFileAtomically(settings_.personalDictionary, content)) return true;
    problem_ = "The personal dictionary " + settings_.personalDictionary.string() +
               " cannot be written: the words added stay known until the check ends.";
    return false;
}

std::vector<CheckedWord> SpellingBridge::UnknownWords(const StyledText& text) {
    std::vector<CheckedWord> unknown;
    const std::u16string plain = TextOutsideNotes(text);
    const std::u16string_view view = plain;
    ForEachCheckedWord(view, 0, [&](const CheckedWord& word) {
        if (!Known(view.substr(word.start, word.length))) unknown.push_back(word);
        return true;
    });
    return unknown;
}

StyledText SpellingBridge::Correct(const StyledText& text, int box,
                                   const SpellingReviewer& reviewer, bool& stopped) {
    StyledText corrected = text;
    std::u16string plain = TextOutsideNotes(corrected);
    std::size_t from = 0;
    for (;;) {
        std::optional<CheckedWord> next;
        ForEachCheckedWord(plain, from, [&](const CheckedWord& word) {
            if (Known(std::u16string_view(plain).substr(word.start, word.length))) return true;
            next = word;
            return false;
        });
        if (!next) return corrected;
        const std::u16string spelling = plain.substr(next->start, next->length);
        SpellingQuestion question{*this, box, corrected, *next, spelling, {}};
        if (settings_.alwaysSuggest) question.suggestions = Suggestions(spelling);
        const SpellingDecision decision = reviewer(question);
        from = next->start + next->length;
        switch (decision.action) {
            case SpellingAction::Ignore:
                break;
            case SpellingAction::IgnoreAll:
                IgnoreAll(spelling);
                break;
            case SpellingAction::AddToDictionary:
                AddToDictionary(spelling);
                break;
            case SpellingAction::Replace:
                corrected.Replace(next->start, next->length, decision.replacement);
                plain.replace(next->start, next->length, decision.replacement);
                from = next->start + decision.replacement.size();
                break;
            case SpellingAction::Stop:
                stopped = true;
                return corrected;
        }
    }
}

void SpellingBridge::Stop() {
    speller_.reset();
    ignored_.clear();
    problem_.clear();
}

}  // namespace tessarin
