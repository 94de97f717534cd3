#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// Replaces, in this order, "&" by "&amp;", '"' by "&quot;", "'" by "&apos;", "<" by "&lt;"
// and ">" by "&gt;". Works on UTF-8 text and leaves every other byte as it is.
std::string XmlEscape(std::string_view text);

// The reverse, in this order: "&amp;", "&quot;", "&apos;", "&lt;", "&gt;". Each replacement
// runs over the result of the one before, so "&amp;lt;" becomes "<".
std::string XmlUnescape(std::string_view text);

}  // namespace tessarin
