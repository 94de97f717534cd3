#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// Replaces every occurrence of from (not empty) by to in one pass, left to right; what a
// replacement has written is not searched again. The work is linear in the text's length.
void ReplaceAllInText(std::string& text, std::string_view from, std::string_view to);

}  // namespace tessarin
