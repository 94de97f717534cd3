#include <filesystem>
#include <optional>
#include <ostream>
#include <string>

#include "app/editor_session.h"
#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "common/xml_document.h"
#include "story/file_operations.h"
#include "story/import_document.h"
#include "story/save_story.h"
#include "story/story_file_reader.h"
#include "story/story_plain_text.h"
#include "story/styled_text_case.h"

namespace tessarin::cli {
namespace {

constexpr const char* kStoryUsage =
    "tessarin-cli: usage: story resave STORY -o OUT [--unattended] | story text STORY\n";

struct ResaveArguments {
    std::filesystem::path story;
    std::filesystem::path out;
    bool unattended = false;
};

std::optional<ResaveArguments> ParseResave(const Arguments& arguments) {
    ResaveArguments parsed;
    bool haveStory = false, haveOut = false;
    for (std::size_t index = 1; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--unattended") {
            parsed.unattended = true;
        } else if (argument == "-o") {
            if (haveOut || ++index >= arguments.size()) return std::nullopt;
            parsed.out = arguments[index];
            haveOut = true;
        } else if (!haveStory && !argument.starts_with("-")) {
            parsed.story = argument;
            haveStory = true;
        } else {
            return std::nullopt;
        }
    }
    if (!haveStory || !haveOut || parsed.out.filename().empty()) return std::nullopt;
    return parsed;
}

// Documents made elsewhere (RTF, text, office documents) open as new stories by import.
bool IsImportedDocument(const std::filesystem::path& file) {
    const std::string extension = UpperCaseText(file.extension().string());
    return extension == ".RTF" || extension == ".TXT" || extension == ".DOC" ||
           extension == ".DOCX" || extension == ".ODT";
}

// Opens the story as the editor does, then saves it under OUT with the save command.
int Resave(CliContext& context, const ResaveArguments& arguments) {
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return kExitRefused;

    StoryContext storyContext = session.MakeStoryContext();
    if (IsImportedDocument(arguments.story)) {
        if (!OpenStoryFile(session, arguments.story, StandardDocumentImport())) {
            user.ShowStatus(session.window.Status().text);
            context.err << "Cannot import " << arguments.story.string() << '\n';
            return kExitRefused;
        }
    } else if (ReadStory(arguments.story, storyContext, session.story) ==
               StoryReadOutcome::NotRead) {
        return kExitRefused;
    }
    session.storyDirectory = arguments.out.parent_path();
    session.storyFileName = arguments.out.filename().string();

    SaveStoryRequest request;
    request.directory = session.storyDirectory;
    request.fileName = session.storyFileName;
    request.unattended = arguments.unattended;
    const SaveResult result = SaveStory(session.story, storyContext, request);
    user.ShowStatus(session.window.Status().text);
    return result.outcome == SaveOutcome::Saved ? kExitDone : kExitRefused;
}

// The plain text of the story's boxes, as the send list's preview shows it.
int PrintText(CliContext& context, const std::filesystem::path& story) {
    XmlDocument document;
    if (!document.LoadFile(story)) {
        context.err << FormatParseErrorStatus(story.string(),
                                              document.ParseError().value_or(XmlParseError{}))
                    << '\n';
        return kExitRefused;
    }
    context.out << StoryPlainText(document.DocumentElement());
    return kExitDone;
}

}  // namespace

int RunStoryCommand(CliContext& context, const Arguments& arguments) {
    if (arguments.size() == 2 && arguments[0] == "text") return PrintText(context, arguments[1]);
    if (!arguments.empty() && arguments[0] == "resave") {
        if (const auto parsed = ParseResave(arguments)) return Resave(context, *parsed);
    }
    context.err << kStoryUsage;
    return kExitUsage;
}

}  // namespace tessarin::cli
