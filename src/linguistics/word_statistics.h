#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "config/configuration.h"
#include "linguistics/empty_words.h"
#include "linguistics/letter_rows.h"
#include "text/styled_text.h"

namespace tessarin {

class SpellingBridge;

// A list holds at most this many distinct words; one more stops the analysis.
inline constexpr std::size_t kWordsPerRow = 32000;

struct WordOccurrences {
    std::u16string word;  // as first met in the text
    std::int32_t count = 0;
    bool unknown = false;  // marked by the spelling checker
};

// The distinct words of a story by first letter (letter_rows.h), each list in the order the
// words were first met.
struct WordStatistics {
    std::array<std::vector<WordOccurrences>, kLetterRows> rows;
    std::int64_t occurrences = 0;
    bool truncated = false;  // a list was full: only what came before is counted

    std::size_t DistinctWords() const;
};

// Counts the words of the boxes. Note anchors are left out; the apostrophe of "aujourd'hui",
// "presqu'île", "prud'homme" and "quelqu'un" (as written, case included) is kept, every other
// apostrophe, the middle dot, line ends, tabs and the signs _ , ; : . ? ! " « » ( ) [ ] { }
// / \ - < > separate words like a blank. Pieces shorter than two characters and numbers are
// no words; words are the same when their upper-case forms are; an empty word (when given)
// is left out.
WordStatistics AnalyseWords(const std::array<StyledText, kTextBoxCount>& boxes,
                            const EmptyWords* emptyWords);

// The message for a truncated analysis: "Too much results. Only first 32000 are displayed".
std::string TooManyWordsMessage();

// Marks the words that the started bridge does not know.
void MarkUnknownWords(WordStatistics& statistics, SpellingBridge& bridge);

// Where a word stands: the boxes that hold it, their texts (notes left out) one after the
// other, each followed by CR LF, and the range of each occurrence in that text, whole words
// compared without case.
struct WordPlaces {
    std::u16string text;
    std::vector<std::pair<std::size_t, std::size_t>> occurrences;  // start, length
};
WordPlaces PlacesOfWord(const std::array<StyledText, kTextBoxCount>& boxes,
                        std::u16string_view word);

}  // namespace tessarin
