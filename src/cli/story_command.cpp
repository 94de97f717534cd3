#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "common/utf8.h"
#include "common/xml_document.h"
#include "editing/search_replace.h"
#include "editing/typography_rules.h"
#include "session/editor_session.h"
#include "story/file_operations.h"
#include "story/import_document.h"
#include "story/save_story.h"
#include "story/story_file_reader.h"
#include "story/story_plain_text.h"
#include "text/styled_text_case.h"

namespace tessarin::cli {
namespace {

constexpr const char* kStoryUsage =
    "tessarin-cli: usage: story resave STORY -o OUT [--unattended] | story text STORY\n"
    "                     | story typography STORY -o OUT\n"
    "                     | story replace STORY FIND REPLACEMENT -o OUT [--match-case] "
    "[--whole-word]\n";

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

struct ReplaceArguments {
    ResaveArguments files;
    SearchOptions options;
    std::u16string replacement;
};

// story replace STORY FIND REPLACEMENT -o OUT [--match-case] [--whole-word]: the three texts
// in that order, the options anywhere.
std::optional<ReplaceArguments> ParseReplace(const Arguments& arguments) {
    ReplaceArguments parsed;
    parsed.files.unattended = true;
    std::vector<std::string> texts;
    bool haveOut = false;
    for (std::size_t index = 1; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--match-case") {
            parsed.options.matchCase = true;
        } else if (argument == "--whole-word") {
            parsed.options.wholeWord = true;
        } else if (argument == "-o") {
            if (haveOut || ++index >= arguments.size()) return std::nullopt;
            parsed.files.out = arguments[index];
            haveOut = true;
        } else {
            texts.push_back(argument);
        }
    }
    if (texts.size() != 3 || !haveOut || parsed.files.out.filename().empty()) return std::nullopt;
    parsed.files.story = texts[0];
    parsed.options.what = Utf8ToUtf16(texts[1]);
    parsed.replacement = Utf8ToUtf16(texts[2]);
    return parsed;
}

// Opens the story as the editor does, lets change work on the open story, then saves it
// under OUT with the save command.
int ChangeAndSave(CliContext& context, const ResaveArguments& arguments,
                  const std::function<void(EditorSession&)>& change) {
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
    if (change) change(session);
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
    const std::string subcommand = arguments.empty() ? std::string() : arguments[0];
    if (subcommand == "resave") {
        if (const auto parsed = ParseResave(arguments)) return ChangeAndSave(context, *parsed, {});
    }
    if (subcommand == "typography") {
        std::optional<ResaveArguments> parsed = ParseResave(arguments);
        if (parsed && !parsed->unattended) {
            parsed->unattended = true;
            return ChangeAndSave(context, *parsed,
                                 [](EditorSession& session) { RunAutoTypography(session); });
        }
    }
    if (subcommand == "replace") {
        if (const auto parsed = ParseReplace(arguments)) {
            if (parsed->options.what.empty()) {
                context.err << "tessarin-cli: story replace: the text to find is empty\n";
                return kExitUsage;
            }
            return ChangeAndSave(context, parsed->files, [&](EditorSession& session) {
                context.out << ReplaceAll(session, parsed->options, parsed->replacement) << '\n';
            });
        }
    }
    context.err << kStoryUsage;
    return kExitUsage;
}

}  // namespace tessarin::cli
