#pragma once

#include <filesystem>
#include <string>

#include "common/xml_document.h"
#include "story/story_context.h"
#include "story/story_record.h"

namespace tessarin {

// How the opening of a story file ended.
enum class StoryReadOutcome {
    Read,              // the file was read as a story
    ReadAsSimpleText,  // it did not parse or was not a story, and its text was rescued
    NotRead,           // missing, refused, or nothing could be rescued: the story is empty
};

// Brings the story to the state of a new story, as the editor's reset does before a story
// is read: every value empty, the identity fields (author, e-mail, group, initials) those of
// the user (the configuration's identity, which the preferences' Identification section
// overrides), the status and the genre at their configured defaults, the sections as the
// configuration's choice of general or local sections says, the signature field disabled.
// The form in force is kept.
void ResetStory(StoryRecord& story, const Configuration& configuration);

// The report of a story file that does not parse: "Parsing error: " line end path line end
// "line: " n ", pos: " n line end source text line end reason.
std::string StoryParseErrorReport(const std::filesystem::path& path, const XmlParseError& error);

// Opens the story file at path into story, checking in this order:
// 1. No file at the path: a beep and the warning UnknownStory ":" line end path; the story
//    is left as it was.
// 2. The story is reset (ResetStory). A file that does not parse gives the question
//    "Parsing error: " line end path line end "line: " n ", pos: " n line end source text
//    line end reason line end ReadAsSimpleText.
// 3. A root whose AppName is not exactly "Tessarin": a beep and the question InvalidStory
//    ":" line end path, two line ends, ReadAsSimpleText.
// Yes to either question rescues the text (ReadStoryAsSimpleText); No ends the read. The
// question is asked only of a file that holds text (HoldsRescuableText): for an empty file
// or binary bytes the same report without its last line is told, and the read ends. A caller
// that must keep its story when the read fails reads into another record. Nothing else is
// checked:
// a root of any name with AppName "Tessarin" reads, and every missing element leaves its
// value empty. Line ends in messages are "\n".
//
// Then every value is read: metadata texts as they stand, dates and times as plain
// strings, PublicationDate "0" as a cold story, the sections (general or local by the last
// one present), Form by its exact text among the configured forms, Status and Genre by
// their FormalItem among the configured formal names (present but unknown: no choice), the
// taxonomy topics with a numeric FormalItem, the keywords with a numeric CategoryIndex under
// the category key "K" followed by CategoryIndex - 1 (the configuration keys a category
// "K" and its CategoryIndex, and a story's CategoryIndex is that index plus one), the logs
// when the configuration keeps logs, the seven boxes through TagsToStoryText with their
// counters recomputed (except for a box the configuration made invisible), the signature,
// the notes when notes are in use, then the images and other files. A note needs a Name;
// its title and text are unescaped a second time, the text's line ends become CR LF; it is
// a bookmark when marked so and its title stands in a box; it is foreign when the user may
// not manage all notes and the title begins with neither the user's name nor the initials.
// An href that is relative names a file in the story's folder or below it (story_href.h).
// An image or file that is not there is told (UnknownImage or UnknownOtherFile ": " path
// line end StoryLabel ": " story path) and left out; so is one that is no regular file (a
// folder, a device, a pipe) or a relative path climbing out of the story's folder, with a
// line saying so before the story's line. The others are numbered from 1.
StoryReadOutcome ReadStory(const std::filesystem::path& path, const StoryContext& context,
                           StoryRecord& story);

// The rescue of a damaged story: the file's text from "<Body>" to the first "</Body>" after
// it is read with its bold, italic, underline and paragraph tags, the attributes CharCount
// and WordCount cut out of the box tags, "<euro/>" as "€" and the escapes undone; inter and
// superscript pairs are formatted; then the text between "<TextBoxN>" and "</TextBoxN>"
// goes to box N for N from 0 to 5 and what remains to box 6. Every other tag stays as
// characters. A text without "<Body>" and "</Body>" goes whole to box 6 (RescuePlainText).
// A file that holds no text (HoldsRescuableText): a beep, the error InvalidStory, and the
// boxes are emptied (NotRead). The file is read as UTF-8, stray bytes as Windows-1252
// characters, unless its prolog declares ISO-8859-1 (or Windows-1252), read as Windows-1252.
StoryReadOutcome ReadStoryAsSimpleText(const std::filesystem::path& path,
                                       const StoryContext& context, StoryRecord& story);

}  // namespace tessarin
