#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <system_error>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "common/clock.h"
#include "common/file_io.h"
#include "common/xml_document.h"
#include "export/export_frame.h"
#include "export/session_export_context.h"
#include "repository/export_copy.h"
#include "repository/repository_store.h"
#include "session/editor_session.h"

namespace fs = std::filesystem;

namespace tessarin::cli {
namespace {

constexpr const char* kRepositoryUsage =
    "tessarin-cli: usage: repository store STORY [--export FORMAT]\n";

struct StoreArguments {
    fs::path story;
    std::optional<std::string> format;
};

std::optional<StoreArguments> ParseStore(const Arguments& arguments) {
    if (arguments.empty() || arguments[0] != "store") return std::nullopt;
    StoreArguments parsed;
    for (std::size_t index = 1; index < arguments.size(); ++index) {
        if (arguments[index] == "--export" && index + 1 < arguments.size()) {
            parsed.format = arguments[++index];
        } else if (!arguments[index].starts_with("-") && parsed.story.empty()) {
            parsed.story = arguments[index];
        } else {
            return std::nullopt;
        }
    }
    if (parsed.story.filename().empty()) return std::nullopt;
    return parsed;
}

// The layout export of the story as a send makes it in Upload, then its copy in the
// repository; the staged story and the exported file are removed after.
std::optional<RepositoryResult> StoreExport(EditorSession& session, const fs::path& story,
                                            const std::string& format,
                                            RepositoryContext& repository, std::ostream& err) {
    const std::optional<std::string> bytes = ReadFileBytes(story);
    if (!bytes) {
        err << "Cannot read the story " << story.string() << '\n';
        return std::nullopt;
    }
    ExportState state;
    state.UploadDirectory = session.paths.uploadDir.string() + "/";
    state.CurrentUploadNode = story.filename().string();
    state.SourceStoryPath = state.UploadDirectory + state.CurrentUploadNode;
    if (fs::exists(state.SourceStoryPath)) {
        err << "A file named " << state.CurrentUploadNode
            << " is already waiting in the upload directory " << state.UploadDirectory << '\n';
        return std::nullopt;
    }
    if (!WriteFileAtomically(state.SourceStoryPath, *bytes)) {
        err << "Cannot stage the story in " << state.UploadDirectory << '\n';
        return std::nullopt;
    }
    XmlDocument staged;
    std::optional<RepositoryResult> result;
    if (!staged.LoadBytes(*bytes)) {
        err << FormatParseErrorStatus(state.SourceStoryPath,
                                      staged.ParseError().value_or(XmlParseError{}))
            << '\n';
    } else {
        FillStoryNameFields(state, staged.DocumentElement().SelectSingleNode("Metadata"));
        RunExport(format, ExportMode::Layout, "L", state, SessionExportContext(session, Now()));
        result = StoreExportDocument(state.UploadDirectory,
                                     fs::path(state.ExportedFilePath).filename().string(),
                                     state.StoryNameFields, repository);
    }
    std::error_code ignored;
    fs::remove(state.SourceStoryPath, ignored);
    if (!state.ExportedFilePath.empty()) fs::remove(state.ExportedFilePath, ignored);
    return result;
}

}  // namespace

// repository store: the copy that a save (or, with --export, a layout export) leaves in the
// repository, whatever the user's TextMLTracking and TextMLExport say.
int RunRepositoryCommand(CliContext& context, const Arguments& arguments) {
    const std::optional<StoreArguments> parsed = ParseStore(arguments);
    if (!parsed) {
        context.err << kRepositoryUsage;
        return kExitUsage;
    }
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return kExitRefused;
    const Configuration& configuration = session.configuration;
    RepositoryContext repository{configuration.textML, configuration.messages, user,
                                 session.window};
    std::optional<RepositoryResult> result;
    if (!parsed->format) {
        if (!configuration.textML.TrackingEnabled) {
            context.err << "TrackingEnabled of the TextML section is off: nothing is stored\n";
            return kExitRefused;
        }
        const fs::path directory =
            parsed->story.parent_path().empty() ? fs::path(".") : parsed->story.parent_path();
        result = StoreTrackingDocument(parsed->story.filename().string(), directory, repository);
    } else if (!RepositoryCopyOn(configuration.exportFormats, *parsed->format)) {
        context.err << "The " << *parsed->format
                    << " export leaves no copy in the repository: nothing is stored\n";
        return kExitRefused;
    } else {
        result = StoreExport(session, parsed->story, *parsed->format, repository, context.err);
    }
    if (!result) return kExitRefused;
    if (result->outcome == RepositoryOutcome::NoAuthor) {
        context.err << "The story has no Author: nothing is stored\n";
        return kExitRefused;
    }
    if (result->outcome != RepositoryOutcome::Stored) return kExitRefused;
    user.ShowStatus(session.window.secondStatus);
    return kExitDone;
}

}  // namespace tessarin::cli
