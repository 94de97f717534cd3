#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// Search and replace through all text boxes, as one run from box 0 to box 6. Hits that fall
// on a note's anchor are found but never replaced.

struct SearchOptions {
    std::u16string what;
    bool matchCase = false;
    bool wholeWord = false;
};

// The green of the marks that search all puts on every hit.
inline constexpr OleColour kSearchMarkColour = Rgb(0, 255, 0);

// Where frmSearch stands in its run: the box being searched (kTextBoxCount once the run is
// over) and the last hit in it (-1 before the first).
class SearchRun {
  public:
    // The search text or the tab changed: the run starts again from box 0, and the marks go.
    void Restart(EditorSession& session);

    // cmdFollowing: the next hit, selected in its box, which becomes the active box. An empty
    // search does nothing; a story without text shows EmptyStory in the status panel; past
    // box 6 the run starts again and the user is told SearchCompleted.
    std::optional<TextSelection> FindNext(EditorSession& session, const SearchOptions& options);

    // cmdReplace: a selection that is not empty (and holds no anchor) is replaced by
    // replacement, recorded for undo, and the next hit is found after it.
    std::optional<TextSelection> Replace(EditorSession& session, TextSelection selection,
                                         const SearchOptions& options,
                                         std::u16string_view replacement);

    // The box being searched, or kNoBox outside a run: the window shows it in the search
    // colour and keeps the writer out of it meanwhile.
    int SearchedBox() const;

  private:
    void Reset();

    int box_ = 0;
    std::int64_t lastHit_ = -1;
    std::u16string lastSearch_;
};

// Replaces every hit that is not protected in the boxes that hold text, each box counted
// again and recorded for undo. The search moves past each replacement, so a replacement
// that holds the search text is not searched again. Returns the number of replacements.
std::int64_t ReplaceAll(EditorSession& session, const SearchOptions& options,
                        std::u16string_view replacement);

// ReplaceAll, then the message of cmdReplaceAll: SearchCompleted, a line break, the count, a
// blank and ReplaceDone.
std::int64_t ReplaceAllAndTell(EditorSession& session, const SearchOptions& options,
                               std::u16string_view replacement);

// cmdSearchAll: every hit of every box highlighted in green; lblSearchAll shows its caption's
// word, ": " and the number of hits. Returns that number.
std::int64_t MarkAllHits(EditorSession& session, const SearchOptions& options);

// Takes the green marks out of every box (anchors keep their own highlight).
void ClearSearchMarks(EditorSession& session);

}  // namespace tessarin
