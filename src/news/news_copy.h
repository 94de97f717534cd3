#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "common/clock.h"
#include "news/news_log.h"
#include "session/editor_session.h"

namespace tessarin {

// Taking text from agency items into the open story. The text goes at the end of the story's
// box TextRecipient, the headline (when asked) at the end of HeadLineRecipient; each copy is
// recorded in the item's companion log so that every workstation sees the item as used.

// An item as a row of the news list holds it.
struct NewsCopySource {
    std::filesystem::path item;  // the item's file
    std::string headline;        // without the "!!" of a marked row
    std::string status;          // NewsManagement/Status: Embargoed, Withheld, Canceled or other
    NewsCopyState state = NewsCopyState::NotCopied;  // the row's marks
    std::u16string text;                             // the item's text as the pane shows it
};

enum class NewsCopyOutcome {
    Copied,
    Nothing,   // no selection, no text, or no box that can take it
    Withheld,  // withheld or canceled: such text is never copied, and nothing is said
    Declined,  // the user answered No to a question
};

struct NewsCopyResult {
    NewsCopyOutcome outcome = NewsCopyOutcome::Nothing;
    NewsCopyState marked = NewsCopyState::NotCopied;  // the item's mark after a copy
};

// CopySelection of the news window: [start, start + length) of the item's text. An embargoed
// item asks NewsEmbargoedVerify first, a marked one NewsAlreadyCopied, and a box that holds
// text NewsNonEmptyStory (each with the headline and NewsConfirm). The log line is appended,
// the mark is "copied" for the whole text and "copied in part" otherwise; a bookmark is made
// when notes are in use and NewsBookmark is on; the text goes in plain, and typography runs
// over the box when NewsAutoTypography is on.
NewsCopyResult CopyNewsSelection(EditorSession& session, const NewsCopySource& source,
                                 std::size_t start, std::size_t length, const LocalDateTime& when);

// CopyAll: the whole item, marked "copied"; with copyHeadline, the headline goes into the box
// HeadLineRecipient first.
NewsCopyResult CopyWholeNewsItem(EditorSession& session, const NewsCopySource& source,
                                 bool copyHeadline, const LocalDateTime& when);

// The selection of news put in order: the checked items' texts, each followed by CR LF, go
// into the box in one go, after NewsNonEmptyStory when the box holds text, with one bookmark.
// Each item is logged as copied whole. False when nothing was copied.
bool CopySortedNewsItems(EditorSession& session, const std::vector<NewsCopySource>& items,
                         const LocalDateTime& when);

}  // namespace tessarin
