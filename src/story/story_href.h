#pragma once

#include <filesystem>
#include <string_view>

namespace tessarin {

// The file that an Image or File href of a story names. A leading "file://" goes, and with
// it the third slash of "file:///" when a drive letter follows ("file:///C:\Photos\a.jpg",
// as stories written on Windows hold it, gives "C:/Photos/a.jpg"); "file:///home/a.jpg" gives
// "/home/a.jpg". Then "%20" becomes a blank and "%c3%a9" becomes "é", the only two encodings
// that older stories used, and both "\" and "/" become the native separator.
std::filesystem::path PathFromStoryHref(std::string_view href);

}  // namespace tessarin
