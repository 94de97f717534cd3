#pragma once

#include <string_view>

#include "config/export_section.h"

namespace tessarin {

// Whether a layout export of this format leaves a copy in the repository: the TextML switch
// of the NewsML or NITF section, or of the TessarinML section for every format that the
// TessarinML writer serves; never for the other writers.
bool RepositoryCopyOn(const ExportSettings& settings, std::string_view format);

// An FTP send of a format turns that format's switch off for the rest of the run (until
// the configuration is read again), so that no later send of it stores a copy either.
void ClearRepositoryCopy(ExportSettings& settings, std::string_view format);

}  // namespace tessarin
