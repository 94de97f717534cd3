#include "export/xsl_export.h"

#include <optional>

#include "common/file_io.h"
#include "export/export_frame.h"
#include "export/xsl_transform.h"

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

BesideStoryExport ExportXslCommand(EditorSession& session) {
    if (!StoryHasPlace(session)) return {};
    const std::optional<std::filesystem::path> sheetPath =
        StyleSheetPath(session.preferences, session.paths.xsltDir);
    if (!sheetPath) {
        session.window.Status().text = session.Message("SaveExportedStory");
        session.user.Beep();
        return {};
    }
    const std::optional<XmlDocument> sheet = LoadStyleSheet(session, *sheetPath);
    if (!sheet) return {};
    const std::filesystem::path path = PathBesideStory(session, StyleSheetExtension(*sheet));

    const ExportContext context{session.configuration,
                                session.window,
                                session.preferences,
                                session.user,
                                TESSARIN_VERSION,
                                session.configuration.identity.author,
                                0,
                                Now()};
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
