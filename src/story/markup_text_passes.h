#pragma once

#include <cstddef>
#include <string>
#include <string_view>

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

}  // namespace tessarin
