#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// How the NewsML and NITF writers name a story's pictures.

// The picture name of an Image href: a leading "file:///" is cut and each "%20" becomes a
// blank. Staged stories hold bare names, which come through unchanged.
std::string PictureNameFromHref(std::string_view href);

// A file URL with three slashes in all: "file://" before an absolute path ("/srv/a.jpg"),
// "file:///" before anything else ("C:/Photos/a.jpg", a relative name).
std::string FileUrl(std::string_view path);

}  // namespace tessarin
