#include "repository/export_copy.h"

#include "export/export_frame.h"

namespace tessarin {
namespace {

template <typename Settings>
auto* RepositoryCopySwitch(Settings& settings, std::string_view format) {
    switch (WriterForFormat(format)) {
        case ExportWriter::NewsML:
            return &settings.NewsML.TextML;
        case ExportWriter::NITF:
            return &settings.NITF.TextML;
        case ExportWriter::TessarinML:
            return &settings.TessarinML.TextML;
        default:
            break;
    }
    return static_cast<decltype(&settings.NewsML.TextML)>(nullptr);
}

}  // namespace

bool RepositoryCopyOn(const ExportSettings& settings, std::string_view format) {
    const bool* on = RepositoryCopySwitch(settings, format);
    return on != nullptr && *on;
}

void ClearRepositoryCopy(ExportSettings& settings, std::string_view format) {
    if (bool* on = RepositoryCopySwitch(settings, format)) *on = false;
}

}  // namespace tessarin
