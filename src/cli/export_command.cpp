#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <system_error>

#include "app/window_state.h"
#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "common/file_io.h"
#include "config/configuration.h"
#include "config/load_configuration.h"
#include "config/preferences.h"
#include "config/profile_file.h"
#include "export/export_frame.h"

namespace tessarin::cli {
namespace {

constexpr const char* kExportUsage =
    "tessarin-cli: usage: export FORMAT STORY -o OUT [--mode user|layout|ftp] [--server N] "
    "[--log-type T] [--log-line TEXT] [--target PATH]\n";

struct ExportArguments {
    std::string format;
    std::filesystem::path story;
    std::filesystem::path out;
    ExportMode mode = ExportMode::Layout;
    std::size_t server = 1;
    std::optional<std::string> logType;
    std::string logLine;
    std::string target;
};

std::optional<ExportMode> ModeNamed(std::string_view name) {
    if (name == "layout") return ExportMode::Layout;
    if (name == "ftp") return ExportMode::Ftp;
    if (name == "user") return ExportMode::User;
    return std::nullopt;
}

std::optional<std::size_t> ServerNumber(std::string_view text) {
    if (text.empty() || text.size() > 6 || text.find_first_not_of("0123456789") != text.npos)
        return std::nullopt;
    const std::size_t number = std::stoul(std::string(text));
    return number >= 1 ? std::optional<std::size_t>(number) : std::nullopt;
}

std::optional<ExportArguments> ParseExport(const Arguments& arguments) {
    ExportArguments parsed;
    std::vector<std::string> positional;
    bool haveOut = false;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        const bool takesValue = argument == "-o" || argument == "--mode" ||
                                argument == "--server" || argument == "--log-type" ||
                                argument == "--log-line" || argument == "--target";
        if (!takesValue) {
            if (argument.starts_with("-") && argument.size() > 1) return std::nullopt;
            positional.push_back(argument);
            continue;
        }
        if (++index >= arguments.size()) return std::nullopt;
        const std::string& value = arguments[index];
        if (argument == "-o") {
            parsed.out = value;
            haveOut = true;
        } else if (argument == "--mode") {
            const auto mode = ModeNamed(value);
            if (!mode) return std::nullopt;
            parsed.mode = *mode;
        } else if (argument == "--server") {
            const auto server = ServerNumber(value);
            if (!server) return std::nullopt;
            parsed.server = *server;
        } else if (argument == "--log-type") {
            parsed.logType = value;
        } else if (argument == "--log-line") {
            parsed.logLine = value;
        } else {
            parsed.target = value;
        }
    }
    if (positional.size() != 2 || !haveOut || parsed.out.filename().empty()) return std::nullopt;
    parsed.format = positional[0];
    parsed.story = positional[1];
    if (parsed.story.filename().empty()) return std::nullopt;
    return parsed;
}

// The destination type that a send of this mode gives the log entry: "L" for a layout
// destination, "F" for FTP, "W" (the type of an untyped entry) for a person.
std::string DefaultLogType(ExportMode mode) {
    switch (mode) {
        case ExportMode::Ftp:
            return "F";
        case ExportMode::User:
            return "W";
        case ExportMode::Layout:
            break;
    }
    return "L";
}

// The command line's user, which also notes whether a writer showed its parse error box.
class ExportInteraction : public CliInteraction {
  public:
    using CliInteraction::CliInteraction;
    void Tell(std::string_view text, MessageIcon icon) override {
        if (icon == MessageIcon::Critical) failed = true;
        CliInteraction::Tell(text, icon);
    }
    bool failed = false;
};

void RemoveFile(const std::string& path) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored)) std::filesystem::remove(path, ignored);
}

// Stages the story, runs the writer as a send does, copies the output to OUT, and cleans
// the upload directory.
int ExportStory(CliContext& context, const ExportArguments& arguments) {
    ExportInteraction user(context.answer, context.err);
    const ProfileFile profile(context.preferencesFile);
    const Preferences preferences = ReadPreferences(profile);
    Configuration configuration;
    WindowState window;
    if (!LoadConfiguration(context.configurationFile, profile, preferences, configuration,
                           window)) {
        const std::string& status = window.Status().text;
        context.err << (status.empty() ? "The configuration " + context.configurationFile.string() +
                                             " cannot be loaded"
                                       : status)
                    << '\n';
        return kExitRefused;
    }
    if (arguments.mode == ExportMode::Ftp &&
        arguments.server > configuration.ftpTransmission.servers.size()) {
        context.err << "There is no FTP server " << arguments.server << " in the configuration\n";
        return kExitRefused;
    }
    const std::optional<std::string> story = ReadFileBytes(arguments.story);
    if (!story) {
        context.err << "Cannot read the story " << arguments.story.string() << '\n';
        return kExitRefused;
    }

    ExportState state;
    state.UploadDirectory = context.paths.uploadDir.string();
    if (!state.UploadDirectory.ends_with('/')) state.UploadDirectory += '/';
    state.CurrentUploadNode = arguments.story.filename().string();
    state.SourceStoryPath = state.UploadDirectory + state.CurrentUploadNode;
    state.TargetPath = arguments.target;
    state.LogLine = arguments.logLine;
    if (std::filesystem::exists(state.SourceStoryPath)) {
        context.err << "A file named " << state.CurrentUploadNode
                    << " is already waiting in the upload directory " << state.UploadDirectory
                    << '\n';
        return kExitRefused;
    }
    if (!WriteFileAtomically(state.SourceStoryPath, *story)) {
        context.err << "Cannot stage the story in " << state.UploadDirectory << '\n';
        return kExitRefused;
    }

    const ExportContext exportContext{
        .configuration = configuration,
        .window = window,
        .preferences = preferences,
        .user = user,
        .userName = configuration.identity.author,
        .ftpServer = arguments.mode == ExportMode::Ftp ? arguments.server : 0};
    RunExport(arguments.format, arguments.mode,
              arguments.logType.value_or(DefaultLogType(arguments.mode)), state, exportContext);

    int status = kExitDone;
    if (user.failed) {
        status = kExitRefused;
    } else if (const auto exported = ReadFileBytes(state.ExportedFilePath);
               !exported || !WriteFileAtomically(arguments.out, *exported)) {
        context.err << "Cannot copy the exported file " << state.ExportedFilePath << " to "
                    << arguments.out.string() << '\n';
        status = kExitRefused;
    } else {
        context.out << "TargetPath=" << state.TargetPath << '\n'
                    << "TargetDirectory=" << state.TargetDirectory << '\n';
    }
    RemoveFile(state.SourceStoryPath);
    RemoveFile(state.ExportedFilePath);
    return status;
}

}  // namespace

int RunExportCommand(CliContext& context, const Arguments& arguments) {
    const std::optional<ExportArguments> parsed = ParseExport(arguments);
    if (!parsed) {
        context.err << kExportUsage;
        return kExitUsage;
    }
    return ExportStory(context, *parsed);
}

}  // namespace tessarin::cli
