#include <filesystem>
#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "export/pdf_export.h"
#include "export/rtf_export.h"
#include "export/xsl_export.h"
#include "session/editor_session.h"
#include "story/story_file_reader.h"

namespace tessarin::cli {
namespace {

constexpr const char* kDocumentUsage = "tessarin-cli: usage: document rtf|xsl|pdf STORY\n";

using DocumentExport = BesideStoryExport (*)(EditorSession&);

DocumentExport ExportNamed(const std::string& format) {
    if (format == "rtf") return &ExportRtfCommand;
    if (format == "xsl") return [](EditorSession& session) { return ExportXslCommand(session); };
    if (format == "pdf") return &ExportPdfCommand;
    return nullptr;
}

}  // namespace

// The export menu's RTF, XSL and PDF commands on a story opened as the editor opens it.
int RunDocumentCommand(CliContext& context, const Arguments& arguments) {
    const DocumentExport exportCommand =
        arguments.size() == 2 ? ExportNamed(arguments[0]) : nullptr;
    if (exportCommand == nullptr) {
        context.err << kDocumentUsage;
        return kExitUsage;
    }
    const std::filesystem::path story = arguments[1];
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return kExitRefused;
    StoryContext storyContext = session.MakeStoryContext();
    if (ReadStory(story, storyContext, session.story) == StoryReadOutcome::NotRead)
        return kExitRefused;
    session.storyDirectory = story.parent_path().empty() ? "." : story.parent_path();
    session.storyFileName = story.filename().string();

    const BesideStoryExport result = exportCommand(session);
    user.ShowStatus(session.window.Status().text);
    if (!result.Written()) return kExitRefused;
    context.out << result.path.string() << '\n';
    return kExitDone;
}

}  // namespace tessarin::cli
