#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// The MD5 digest of the bytes as 32 lower-case hexadecimal digits, as the repository
// server's login expects it.
std::string Md5Hex(std::string_view bytes);

}  // namespace tessarin
