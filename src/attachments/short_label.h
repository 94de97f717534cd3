#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessarin {

// The label of an attachment node on one line: the two characters "\n", CR LF, CR, LF and
// tab each become a blank. A text longer than maxLength characters (UTF-16 units, as the
// trees count them) is cut there, cut again before its last blank if it has one, and ends
// in " [...]"; a shorter one is trimmed of blanks.
std::string ShortLabel(std::string_view text, std::size_t maxLength);

}  // namespace tessarin
