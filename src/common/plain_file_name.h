#pragma once

#include <string_view>

namespace tessarin {

// A name that comes from a file (a story's href, a destination of the configuration, a
// message's recipient) and is used as a file name inside a known folder. It stays a name:
// not empty, not "." or "..", and without "/", "\" or a NUL character, so that nothing it
// names can lie outside that folder.
bool IsPlainFileName(std::string_view name);

}  // namespace tessarin
