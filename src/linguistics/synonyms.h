#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "config/configuration.h"
#include "linguistics/letter_rows.h"

namespace tessarin {

// The synonyms dictionary: a plain text file, one record a line, "word\MARK:synonyms" where
// MARK is ADV (adverb), A (adjective), N (noun) or V (verb) and the synonyms are separated by
// "\", each may carry its own mark ("matou\N\minet\N"). Lines that follow for the same word
// add their synonyms to its entry. Kept by first letter, at most kSynonymsPerRow words a
// letter.
inline constexpr std::size_t kSynonymsPerRow = 3000;

struct SynonymsEntry {
    std::string word;      // UTF-8
    std::string synonyms;  // the synonym texts of its lines, joined by "\"
};

struct SynonymsDictionary {
    std::array<std::vector<SynonymsEntry>, kLetterRows> rows;
};

struct SynonymsLoad {
    SynonymsDictionary dictionary;
    bool usable = false;  // false: the file is missing and the synonyms command is disabled
    std::string warning;  // the warning box's text, empty when there is none
};

// The dictionary file that the configuration names (Interface ToolsSynonyms File), relative
// to the application directory unless absolute; empty when the configuration names none.
std::filesystem::path SynonymsFile(const Configuration& configuration,
                                   const std::filesystem::path& appDir);

// Reads the dictionary: each line trimmed, blank lines and lines without "\" skipped. A
// missing file (or no name) gives "Unknown synonyms dictionnary:" CR LF path; a letter past
// kSynonymsPerRow words stops the reading with "Too much synonyms in file:" CR LF path CR LF
// and keeps what was read. Bytes that are not UTF-8 are read as Windows-1252.
SynonymsLoad LoadSynonyms(const std::filesystem::path& file);

// The lines that the synonyms window lists for a word: those of the first entry that is the
// word or, for a plural, the word without its final "s"; the marks shown as " (adv.)",
// " (adj.)", " (n.)" and " (v.)". Empty when the word has none.
std::vector<std::string> SynonymsOf(const SynonymsDictionary& dictionary, std::string_view word);

// The word that a listed line offers as replacement: the text before its first blank. The
// marker "###" is no word: a line that holds it offers nothing.
std::string ReplacementOfLine(std::string_view line);

// The range of the word around the caret in a text, as the synonyms command takes it:
// backwards to one of the delimiters ` ,;:.?!-_/"()[]·'` or a line feed, forwards to the
// same delimiters less the apostrophe (a line break, CR LF, delimits as its LF does), so
// that "aujourd'hui" is one word and "l'homme" gives "homme".
struct WordRange {
    std::size_t start = 0;
    std::size_t length = 0;
};
WordRange WordAtCaret(std::u16string_view text, std::size_t caret);

}  // namespace tessarin
