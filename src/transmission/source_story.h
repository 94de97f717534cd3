#pragma once

#include <filesystem>

#include "common/xml_document.h"

namespace tessarin {

// The source of a staged story: Metadata/OriginalPath Name, the file the story was added
// from; empty when the staged story has none.
std::filesystem::path OriginalPathOf(const XmlDocument& staged);

// A source story whose item arrived is archived as "<base>.bml", replacing one that is there,
// and made writable. A source without an extension, or failures, leave things as they are.
void ArchiveSentSource(const std::filesystem::path& source);

}  // namespace tessarin
