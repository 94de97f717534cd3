#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "story/inline_tag_nesting.h"

namespace tessarin {

// Replaces every occurrence of from (not empty) by to, left to right; what a replacement has
// written is not searched again.
void ReplaceAll(std::u16string& text, std::u16string_view from, std::u16string_view to);

// The blanks left of a run of run blanks when runs of longest, longest - 1, ... down to 2
// blanks are each replaced by one blank, in that order, each over the whole text. Runs
// never merge under these replacements, so each run can be reduced on its own.
std::size_t BlanksAfterCollapsing(std::size_t run, std::size_t longest);

// Reduces every run of blanks of a text as BlanksAfterCollapsing says.
void CollapseBlankRuns(std::u16string& text, std::size_t longest);

// The passes that finish the tag text of a story's body, in this order: the fixed table of
// tag order repairs, a line break after each paragraph tag, the removal of raw tabs, the
// repairs around note tags, and, when removeDuplicateSpaces is set, the collapse of runs of
// up to 6 blanks. None of them looks across the frame of a text box element, so they can
// run over each box's inline text and each caption apart.
void FinishBodyText(std::u16string& text, bool removeDuplicateSpaces);

// The same passes over a box's inline tags, followed by the repair of crossed tags
// (NestInlineTags), in one pass, giving the result to emit piece by piece as the tags come.
// Every "<" of the tags must begin a tag and every ">" end one, and no raw tab may be left,
// as the writer makes them.
class InlineTagFinisher {
  public:
    using Emit = std::function<void(std::u16string_view)>;

    InlineTagFinisher(bool removeDuplicateSpaces, Emit emit);

    // Finishes the tags up to their last character that is neither a blank nor in a tag nor
    // the first half of a surrogate pair, and erases them from tags: what follows may still
    // change with the tags written after it.
    void FeedSettled(std::u16string& tags);
    // Finishes the rest of the box.
    void FeedLast(std::u16string_view tags);

  private:
    void Feed(std::u16string_view tags);

    bool removeDuplicateSpaces_;
    Emit emit_;
    std::u16string finished_;
    TagNester nester_;
};

}  // namespace tessarin
