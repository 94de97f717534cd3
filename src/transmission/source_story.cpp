#include "transmission/source_story.h"

#include <system_error>

#include "common/read_only_file.h"

namespace tessarin {

std::filesystem::path OriginalPathOf(const XmlDocument& staged) {
    return staged.DocumentElement().SelectSingleNode("Metadata/OriginalPath").Attribute("Name");
}

void ArchiveSentSource(const std::filesystem::path& source) {
    if (source.empty() || !source.has_extension()) return;
    std::filesystem::path backup = source;
    backup.replace_extension(".bml");
    if (backup == source) return;
    std::error_code ignored;
    std::filesystem::remove(backup, ignored);
    std::filesystem::rename(source, backup, ignored);
    MakeWritable(backup);
}

}  // namespace tessarin
