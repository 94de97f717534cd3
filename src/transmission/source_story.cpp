#include "transmission/source_story.h"

namespace tessarin {

std::filesystem::path OriginalPathOf(const XmlDocument& staged) {
    return staged.DocumentElement().SelectSingleNode("Metadata/OriginalPath").Attribute("Name");
}

}  // namespace tessarin
