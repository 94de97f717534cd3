#pragma once

#include <filesystem>

#include "common/xml_document.h"

namespace tessarin {

// The source of a staged story: Metadata/OriginalPath Name, the file the story was added
// from; empty when the staged story has none.
std::filesystem::path OriginalPathOf(const XmlDocument& staged);

}  // namespace tessarin
