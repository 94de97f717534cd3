#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace tessarin {

// The file that an Image or File href of a story names. A leading "file://" goes, and with
// it the third slash of "file:///" when a drive letter follows ("file:///C:\Photos\a.jpg",
// as stories written on Windows hold it, gives "C:/Photos/a.jpg"); "file:///home/a.jpg" gives
// "/home/a.jpg". Then "%20" becomes a blank and "%c3%a9" becomes "é", the only two encodings
// that older stories used, and both "\" and "/" become the native separator.
std::filesystem::path PathFromStoryHref(std::string_view href);

// Whether the path (as PathFromStoryHref gives it) is a relative one: neither rooted nor
// starting with a drive letter.
bool IsRelativeStoryPath(const std::filesystem::path& path);

// The file that an href of a story standing in storyFolder names: PathFromStoryHref's path,
// a relative one being taken in the story's folder, whatever the working directory, and
// made absolute. Nothing for a relative path that climbs out of that folder ("../a.jpg"):
// a story names files beside it or below it, never above.
std::optional<std::filesystem::path> LinkedFilePath(std::string_view href,
                                                    const std::filesystem::path& storyFolder);

}  // namespace tessarin
