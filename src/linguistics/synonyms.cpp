#include "linguistics/synonyms.h"

#include "common/text_replace.h"
#include "common/utf8.h"
#include "config/text_trim.h"
#include "linguistics/word_list_file.h"

namespace tessarin {
namespace {

int RowOf(std::string_view word) {
    return LetterRow(Utf8ToUtf16(word.substr(0, 4)));
}

// The grammatical marks as shown; "\ADV" goes before "\A", which would eat it.
struct MarkCaption {
    std::string_view mark;
    std::string_view caption;
};
constexpr MarkCaption kMarkCaptions[] = {
    {"\\ADV", " (adv.)"}, {"\\A", " (adj.)"}, {"\\N", " (n.)"}, {"\\V", " (v.)"}};

constexpr std::u16string_view kBackwardDelimiters = u" ,;:.?!-_/\"()[]\u00B7'\n\r";
constexpr std::u16string_view kForwardDelimiters = u" ,;:.?!-_/\"()[]\u00B7\n\r";

}  // namespace

std::filesystem::path SynonymsFile(const Configuration& configuration,
                                   const std::filesystem::path& appDir) {
    const std::string& name = configuration.interface.Entry("ToolsSynonyms").File;
    if (name.empty()) return {};
    const std::filesystem::path file(name);
    return file.is_absolute() ? file : appDir / file;
}

SynonymsLoad LoadSynonyms(const std::filesystem::path& file) {
    SynonymsLoad load;
    const auto lines = file.empty() ? std::nullopt : ReadWordListLines(file);
    if (!lines) {
        load.warning = "Unknown synonyms dictionnary:\r\n" + file.string();
        return load;
    }
    load.usable = true;
    std::string previousWord;
    SynonymsEntry* entry = nullptr;
    for (const std::string_view line : *lines) {
        const std::size_t mark = line.find('\\');
        if (mark == std::string_view::npos) continue;
        const std::string_view word = line.substr(0, mark);
        if (entry == nullptr || word != previousWord) {
            auto& row = load.dictionary.rows[RowOf(word)];
            if (row.size() >= kSynonymsPerRow) {
                load.warning = "Too much synonyms in file:\r\n" + file.string() + "\r\n";
                return load;
            }
            entry = &row.emplace_back(SynonymsEntry{std::string(word), {}});
            previousWord = word;
        }
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos) continue;
        const std::string_view synonyms = TrimWhitespace(line.substr(colon + 1));
        if (!entry->synonyms.empty() && !synonyms.empty()) entry->synonyms += '\\';
        entry->synonyms += synonyms;
    }
    return load;
}

std::vector<std::string> SynonymsOf(const SynonymsDictionary& dictionary, std::string_view word) {
    std::vector<std::string> lines;
    for (const SynonymsEntry& entry : dictionary.rows[RowOf(word)]) {
        if (entry.word != word && entry.word + "s" != word) continue;
        std::string text = entry.synonyms;
        for (const MarkCaption& mark : kMarkCaptions)
            ReplaceAllInText(text, mark.mark, mark.caption);
        std::string_view rest = text;
        for (;;) {
            const std::size_t cut = rest.find('\\');
            if (const std::string_view piece = rest.substr(0, cut); !piece.empty())
                lines.emplace_back(piece);
            if (cut == std::string_view::npos) break;
            rest.remove_prefix(cut + 1);
        }
        break;
    }
    return lines;
}

std::string ReplacementOfLine(std::string_view line) {
    if (line.find("###") != std::string_view::npos) return {};
    return std::string(line.substr(0, line.find(' ')));
}

WordRange WordAtCaret(std::u16string_view text, std::size_t caret) {
    caret = std::min(caret, text.size());
    std::size_t start = caret;
    while (start > 0 && kBackwardDelimiters.find(text[start - 1]) == std::u16string_view::npos)
        --start;
    std::size_t end = caret;
    while (end < text.size() && kForwardDelimiters.find(text[end]) == std::u16string_view::npos)
        ++end;
    return {start, end - start};
}

}  // namespace tessarin
