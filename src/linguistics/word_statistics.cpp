#include "linguistics/word_statistics.h"

#include <algorithm>
#include <unordered_map>

#include "common/number_parse.h"
#include "common/utf8.h"
#include "linguistics/spelling_bridge.h"
#include "linguistics/text_view_hash.h"
#include "story/styled_text_case.h"

namespace tessarin {
namespace {

// Four words keep their apostrophe; it is set apart by this mark while the others separate.
constexpr std::u16string_view kWholeWords[] = {u"aujourd'hui", u"presqu'\u00EEle", u"prud'homme",
                                               u"quelqu'un"};
constexpr char16_t kKeptApostrophe = u'\u009D';

bool Separates(char16_t unit) {
    switch (unit) {
        case u' ':
        case u'\r':
        case u'\n':
        case u'\t':
        case u'\u00B7':
        case u'_':
        case u',':
        case u';':
        case u':':
        case u'.':
        case u'?':
        case u'!':
        case u'\'':
        case u'"':
        case u'\u00AB':
        case u'\u00BB':
        case u'(':
        case u')':
        case u'[':
        case u']':
        case u'{':
        case u'}':
        case u'/':
        case u'\\':
        case u'-':
        case u'<':
        case u'>':
            return true;
        default:
            return false;
    }
}

std::u16string TextWithoutNotes(const StyledText& box) {
    std::u16string text;
    text.reserve(box.Length());
    box.ForEachRun(0, box.Length(), [&](const FormatRun& run) {
        if (!run.format.isProtected) text += box.Text(run.start, run.length);
    });
    return text;
}

void KeepWholeWordApostrophes(std::u16string& text) {
    for (const std::u16string_view word : kWholeWords) {
        const std::size_t apostrophe = word.find(u'\'');
        for (std::size_t at = text.find(word); at != std::u16string::npos;
             at = text.find(word, at + word.size()))
            text[at + apostrophe] = kKeptApostrophe;
    }
}

bool IsNumber(std::u16string_view piece) {
    const char16_t first = piece.front();
    if (!(first >= u'0' && first <= u'9') && first != u'+' && first != u'.') return false;
    return IsNumeric(Utf16ToUtf8(piece));
}

class WordTally {
  public:
    WordTally(WordStatistics& statistics, const EmptyWords* emptyWords)
        : statistics_(statistics), emptyWords_(emptyWords) {}

    // False once a full list stopped the analysis.
    bool Add(std::u16string_view piece) {
        if (piece.size() < 2 || IsNumber(piece)) return true;
        upper_.assign(piece);
        for (char16_t& unit : upper_)
            unit = unit == kKeptApostrophe ? u'\'' : ToUpperUnit(unit);
        if (emptyWords_ != nullptr && emptyWords_->Contains(upper_)) return true;
        if (const auto found = index_.find(std::u16string_view(upper_)); found != index_.end()) {
            ++statistics_.rows[found->second.row][found->second.index].count;
            ++statistics_.occurrences;
            return true;
        }
        auto& row = statistics_.rows[LetterRow(upper_)];
        if (row.size() >= kWordsPerRow) {
            statistics_.truncated = true;
            return false;
        }
        std::u16string word(piece);
        std::replace(word.begin(), word.end(), kKeptApostrophe, u'\'');
        index_.emplace(upper_, Place{LetterRow(upper_), row.size()});
        row.push_back(WordOccurrences{std::move(word), 1, false});
        ++statistics_.occurrences;
        return true;
    }

  private:
    struct Place {
        int row;
        std::size_t index;
    };

    WordStatistics& statistics_;
    const EmptyWords* emptyWords_;
    std::unordered_map<std::u16string, Place, TextViewHash, std::equal_to<>> index_;
    std::u16string upper_;
};

bool IsWholeWordAt(std::u16string_view text, std::size_t at, std::size_t length) {
    return (at == 0 || !IsWordUnit(text[at - 1])) &&
           (at + length >= text.size() || !IsWordUnit(text[at + length]));
}

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded)
        unit = FoldCaseUnit(unit);
    return folded;
}

}  // namespace

std::size_t WordStatistics::DistinctWords() const {
    std::size_t distinct = 0;
    for (const auto& row : rows)
        distinct += row.size();
    return distinct;
}

WordStatistics AnalyseWords(const std::array<StyledText, kTextBoxCount>& boxes,
                            const EmptyWords* emptyWords) {
    WordStatistics statistics;
    if (emptyWords != nullptr && emptyWords->Empty()) emptyWords = nullptr;
    WordTally tally(statistics, emptyWords);
    for (const StyledText& box : boxes) {
        std::u16string text = TextWithoutNotes(box);
        KeepWholeWordApostrophes(text);
        const std::u16string_view view = text;
        std::size_t start = 0;
        for (std::size_t at = 0; at <= view.size(); ++at) {
            if (at < view.size() && !Separates(view[at])) continue;
            if (at > start && !tally.Add(view.substr(start, at - start))) return statistics;
            start = at + 1;
        }
    }
    return statistics;
}

std::string TooManyWordsMessage() {
    return "Too much results. Only first " + std::to_string(kWordsPerRow) + " are displayed";
}

void MarkUnknownWords(WordStatistics& statistics, SpellingBridge& bridge) {
    for (auto& row : statistics.rows) {
        for (WordOccurrences& word : row)
            word.unknown = !bridge.Known(word.word);
    }
}

WordPlaces PlacesOfWord(const std::array<StyledText, kTextBoxCount>& boxes,
                        std::u16string_view word) {
    WordPlaces places;
    if (word.empty()) return places;
    const std::u16string wanted = Folded(word);
    for (const StyledText& box : boxes) {
        const std::u16string text = TextWithoutNotes(box);
        const std::u16string folded = Folded(text);
        std::vector<std::pair<std::size_t, std::size_t>> found;
        for (std::size_t at = folded.find(wanted); at != std::u16string::npos;
             at = folded.find(wanted, at + 1)) {
            if (IsWholeWordAt(folded, at, wanted.size()))
                found.emplace_back(places.text.size() + at, wanted.size());
        }
        if (found.empty()) continue;
        places.occurrences.insert(places.occurrences.end(), found.begin(), found.end());
        places.text += text + u"\r\n";
    }
    return places;
}

}  // namespace tessarin
