#include "export/export_frame.h"

namespace tessarin {

void RunExport(std::string_view format, ExportMode mode, std::string_view logType,
               ExportState& state, const ExportContext& context) {
    switch (WriterForFormat(format)) {
        case ExportWriter::NewsML:
            ExportNewsML(state, mode, context);
            return;
        case ExportWriter::NITF:
            ExportNITF(state, mode, context);
            return;
        case ExportWriter::InDesign:
            ExportInDesign(state, mode, context);
            return;
        case ExportWriter::XPress:
            ExportXPress(state, mode, context);
            return;
        case ExportWriter::EditWorks:
            ExportEditWorks(state, mode, context);
            return;
        case ExportWriter::Milenium:
            ExportMilenium(state, mode, context);
            return;
        case ExportWriter::RSS:
            ExportRSS(state, mode, context);
            return;
        case ExportWriter::TessarinML:
            ExportTessarinML(state, logType, mode, context);
            return;
    }
}

}  // namespace tessarin
