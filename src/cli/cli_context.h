#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "app/app_paths.h"
#include "app/user_interaction.h"

namespace tessarin::cli {

// What every command is given: the resolved paths, the chosen answer, and the streams.
struct CliContext {
    AppPaths paths;
    std::filesystem::path configurationFile;  // --config, else <app-dir>/Tessarin.xml
    std::filesystem::path preferencesFile;    // --prefs, else <app-dir>/Tessarin.ini
    Answer answer = Answer::Yes;  // what questions take when the program would ask a user
    std::ostream& out;
    std::ostream& err;
};

// Exit statuses of every command.
constexpr int kExitDone = 0;
constexpr int kExitRefused = 1;
constexpr int kExitUsage = 2;

using Arguments = std::vector<std::string>;

// One function per command group; each returns the exit status.
int RunConfigCommand(CliContext& context, const Arguments& arguments);
int RunStoryCommand(CliContext& context, const Arguments& arguments);
int RunExportCommand(CliContext& context, const Arguments& arguments);
int RunUuencodeCommand(CliContext& context, const Arguments& arguments);
int RunWorkflowCommand(CliContext& context, const Arguments& arguments);
int RunLogsCommand(CliContext& context, const Arguments& arguments);
int RunDocumentCommand(CliContext& context, const Arguments& arguments);
// spell, synonyms and stats.
int RunLinguisticsCommand(CliContext& context, const std::string& command,
                          const Arguments& arguments);
int RunFtpCommand(CliContext& context, const Arguments& arguments);
int RunMailCommand(CliContext& context, const Arguments& arguments);
int RunUpdateCommand(CliContext& context, const Arguments& arguments);
int RunLoginCommand(CliContext& context, const Arguments& arguments);
int RunSelectCommand(CliContext& context, const Arguments& arguments);
int RunInboxCommand(CliContext& context, const Arguments& arguments);
int RunReceiveCommand(CliContext& context, const Arguments& arguments);
int RunInterceptCommand(CliContext& context, const Arguments& arguments);
int RunTrackCommand(CliContext& context, const Arguments& arguments);
int RunSearchCommand(CliContext& context, const Arguments& arguments);
int RunRepositoryCommand(CliContext& context, const Arguments& arguments);
int RunNewsCommand(CliContext& context, const Arguments& arguments);

}  // namespace tessarin::cli
