#include "linguistics/word_statistics.h"

#include <algorithm>
#include <cstdint>

#include "common/number_parse.h"
#include "common/utf8.h"
#include "linguistics/spelling_bridge.h"
#include "text/styled_text_case.h"

namespace tessarin {
namespace {

// Four words keep their apostrophe; it is set apart by this mark while the others separate.
constexpr std::u16string_view kWholeWords[] = {u"aujourd'hui", u"presqu'\u00EEle", u"prud'homme",
                                               u"quelqu'un"};
constexpr char16_t kKeptApostrophe = u'\u009D';

// What separates words like a blank; all of it lies below 256.
constexpr std::u16string_view kSeparators = u" \r\n\t\u00B7_,;:.?!'\"\u00AB\u00BB()[]{}/\\-<>";
constexpr auto kSeparatorTable = [] {
    std::array<bool, 256> table{};
    for (const char16_t unit : kSeparators)
        table[unit] = true;
    return table;
}();

bool Separates(char16_t unit) {
    return unit < kSeparatorTable.size() && kSeparatorTable[unit];
}

std::u16string TextWithoutNotes(const StyledText& box) {
    std::vector<FormatRun> kept;
    bool notes = false;
    box.ForEachRun(0, box.Length(), [&](const FormatRun& run) {
        if (run.format.isProtected)
            notes = true;
        else
            kept.push_back(run);
    });
    if (!notes) return box.Text();  // one copy, the usual case
    std::u16string text;
    text.reserve(box.Length());
    for (const FormatRun& run : kept)
        text += box.Text(run.start, run.length);
    return text;
}

// Apostrophes are rare: each one found is tried against the four words.
void KeepWholeWordApostrophes(std::u16string& text) {
    for (std::size_t at = text.find(u'\''); at != std::u16string::npos;
         at = text.find(u'\'', at + 1)) {
        for (const std::u16string_view word : kWholeWords) {
            const std::size_t before = word.find(u'\'');
            if (at >= before &&
                std::u16string_view(text).substr(at - before, word.size()) == word) {
                text[at] = kKeptApostrophe;
                break;
            }
        }
    }
}

bool IsNumber(std::u16string_view piece) {
    const char16_t first = piece.front();
    if (!(first >= u'0' && first <= u'9') && first != u'+' && first != u'.') return false;
    return IsNumeric(Utf16ToUtf8(piece));
}

// The upper case of a unit, with the kept apostrophe back as an apostrophe; the letters of
// plain ASCII and the accented small letters of Latin-1, most of any story, without a call.
char16_t UpperUnit(char16_t unit) {
    if (unit < 0x80) return unit >= u'a' && unit <= u'z' ? unit - 0x20 : unit;
    if (unit >= 0xE0 && unit <= 0xFE && unit != 0xF7) return unit - 0x20;  // à to þ
    return unit == kKeptApostrophe ? u'\'' : ToUpperUnit(unit);
}

// The distinct words met so far, by upper-case form. The table is searched once for each word
// of the story, so it is kept small and dense: open addressing over a power-of-two number of
// 8-byte slots, each holding 32 bits of its word's hash (computed while the word is
// upper-cased) and the word's number; the upper-case forms lie one after the other in a single
// buffer, so that the words of a story stay within a few pages of memory.
class WordTally {
  public:
    WordTally(WordStatistics& statistics, const EmptyWords* emptyWords)
        : statistics_(statistics), emptyWords_(emptyWords), slots_(kFirstSlots) {}

    // False once a full list stopped the analysis.
    bool Add(std::u16string_view piece) {
        if (piece.size() < 2 || IsNumber(piece)) return true;
        const std::uint32_t hash = UpperCase(piece);
        if (emptyWords_ != nullptr && emptyWords_->Contains(upper_)) return true;
        const std::size_t mask = slots_.size() - 1;
        std::size_t slot = hash & mask;
        for (; slots_[slot].word != 0; slot = (slot + 1) & mask) {
            const Slot& found = slots_[slot];
            if (found.hash != hash) continue;
            Word& word = words_[found.word - 1];
            if (std::u16string_view(uppers_).substr(word.start, word.length) == upper_) {
                ++word.count;
                ++statistics_.occurrences;
                return true;
            }
        }
        const int letterRow = LetterRow(upper_);
        auto& row = statistics_.rows[letterRow];
        if (row.size() >= kWordsPerRow) {
            statistics_.truncated = true;
            return false;
        }
        std::u16string text(piece);
        std::replace(text.begin(), text.end(), kKeptApostrophe, u'\'');
        words_.push_back(Word{static_cast<std::uint32_t>(uppers_.size()),
                              static_cast<std::uint32_t>(upper_.size()), 1, letterRow, row.size()});
        uppers_ += upper_;
        slots_[slot] = Slot{hash, static_cast<std::uint32_t>(words_.size())};
        row.push_back(WordOccurrences{std::move(text), 1, false});
        ++statistics_.occurrences;
        if (words_.size() * 2 > slots_.size()) Grow();
        return true;
    }

    // Puts the counts kept in the table into the lists.
    void Finish() {
        for (const Word& word : words_)
            statistics_.rows[word.row][word.index].count = word.count;
    }

  private:
    static constexpr std::size_t kFirstSlots = 4096;

    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t word = 0;  // 1 + its number in words_; 0 for a free slot
    };
    struct Word {
        std::uint32_t start;   // of its upper-case form in uppers_
        std::uint32_t length;  // of that form
        std::int32_t count;
        int row;            // its letter's list
        std::size_t index;  // in that list
    };

    // Puts the upper-case form into upper_ and returns its hash (FNV-1a over the units).
    std::uint32_t UpperCase(std::u16string_view piece) {
        upper_.resize(piece.size());
        std::uint64_t hash = 14695981039346656037ull;
        for (std::size_t at = 0; at < piece.size(); ++at) {
            const char16_t unit = UpperUnit(piece[at]);
            upper_[at] = unit;
            hash = (hash ^ unit) * 1099511628211ull;
        }
        return static_cast<std::uint32_t>(hash ^ (hash >> 32));
    }

    void Grow() {
        std::vector<Slot> slots(slots_.size() * 2);
        const std::size_t mask = slots.size() - 1;
        for (const Slot& slot : slots_) {
            if (slot.word == 0) continue;
            std::size_t at = slot.hash & mask;
            while (slots[at].word != 0)
                at = (at + 1) & mask;
            slots[at] = slot;
        }
        slots_ = std::move(slots);
    }

    WordStatistics& statistics_;
    const EmptyWords* emptyWords_;
    std::vector<Slot> slots_;
    std::vector<Word> words_;
    std::u16string uppers_;
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
            if (at > start && !tally.Add(view.substr(start, at - start))) {
                tally.Finish();
                return statistics;
            }
            start = at + 1;
        }
    }
    tally.Finish();
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
