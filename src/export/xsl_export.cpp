#include "export/xsl_export.h"

#include <algorithm>
#include <optional>

#include "common/file_io.h"
#include "export/export_frame.h"
#include "export/session_export_context.h"
#include "export/xsl_transform.h"
#include "text/styled_text_case.h"

namespace tessarin {
namespace {

std::optional<XmlDocument> LoadStyleSheet(EditorSession& session,
                                          const std::filesystem::path& path) {
    XmlDocument sheet;
    if (sheet.LoadFile(path)) return sheet;
    const XmlParseError error =
        sheet.ParseError().value_or(XmlParseError{0, 0, "", "cannot read file"});
    session.user.Tell(ExportParseErrorText(path.string(), error, ", Ligne: ", ", position: "),
                      MessageIcon::Critical);
    session.user.Beep();
    return std::nullopt;
}

void TellFailedTransformation(EditorSession& session, const XslTransformError& error) {
    session.window.ShowStatusError(session.Message("InvalidXSLT"));
    session.user.Tell(error.reason + " , line:" + std::to_string(error.line) + " col: " +
                          std::to_string(error.linePosition) + " text: " + error.sourceText,
                      MessageIcon::Critical);
    session.user.Beep();
}

}  // namespace

std::vector<std::filesystem::path> StyleSheetsIn(const std::filesystem::path& xsltDir) {
    std::vector<std::filesystem::path> sheets;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(xsltDir, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->is_regular_file(error) &&
            UpperCaseText(entry->path().extension().string()) == ".XSL") {
            sheets.push_back(entry->path());
        }
    }
    std::sort(sheets.begin(), sheets.end());
    return sheets;
}

BesideStoryExport ExportXslCommand(EditorSession& session,
                                   const std::optional<std::filesystem::path>& styleSheet) {
    if (!StoryHasPlace(session)) return {};
    const std::optional<std::filesystem::path> sheetPath =
        styleSheet ? styleSheet : StyleSheetPath(session.preferences, session.paths.xsltDir);
    if (!sheetPath) {
        session.window.Status().text = session.Message("SaveExportedStory");
        session.user.Beep();
        return {};
    }
    const std::optional<XmlDocument> sheet = LoadStyleSheet(session, *sheetPath);
    if (!sheet) return {};
    const std::filesystem::path path = PathBesideStory(session, StyleSheetExtension(*sheet));

    const ExportContext context = SessionExportContext(session, Now());
    const std::optional<StagedStory> story =
        LoadStagedStoryOrShowError(session.StoryPath().string(), context);
    if (!story) return {};

    const XslTransformResult result = TransformStory(*sheet, story->document);
    if (!WriteFileAtomically(path, result.succeeded ? result.output : std::string())) {
        session.window.ShowStatusError("Cannot write " + path.string());
        return {};
    }
    if (!result.succeeded) {
        TellFailedTransformation(session, result.error);
        return {};
    }
    return ExportedBesideStory(session, path);
}

}  // namespace tessarin
