#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// Cuts every attribute that starts with marker (" CharCount=\"", 12 characters) out of a
// text as the rescue of a damaged story does, with the result of the plain loop "while the
// marker is found anywhere in the text: cut from it to the next "\">" (the ">" stays), or 9
// characters when no "\">" follows; trim the blanks of the text before the cut and of the
// text after it; join them". The cost is linear in the text, however many markers it holds.
std::u16string CutAttributeMarkers(std::u16string_view text, std::u16string_view marker);

}  // namespace tessarin
