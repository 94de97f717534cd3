#include <filesystem>
#include <iostream>
#include <optional>
#include <string>

#include "app/app_paths.h"
#include "cli/cli_context.h"
#include "cli/iptc_command.h"

namespace {

using tessarin::cli::Arguments;
using tessarin::cli::CliContext;

constexpr const char* kHelp =
    "Usage: tessarin-cli [--app-dir DIR] [--config FILE] [--prefs FILE] [--answer yes|no|cancel]\n"
    "                    COMMAND [ARGS...]\n"
    "\n"
    "Commands:\n"
    "  config check        run the configuration load of start-up and print its status text\n"
    "  story resave STORY -o OUT [--unattended]\n"
    "                      open a story as the editor does and save it to OUT\n"
    "  story text STORY    print the plain text of the story's text boxes\n"
    "  story typography STORY -o OUT\n"
    "                      apply the automatic typography to every box and save to OUT\n"
    "  story replace STORY FIND REPLACEMENT -o OUT [--match-case] [--whole-word]\n"
    "                      replace every FIND in the story's boxes, save to OUT, print the count\n"
    "  iptc PICTURE... [--mac]\n"
    "                      print pictures' IPTC data; --mac restores Macintosh accents\n"
    "  export FORMAT STORY -o OUT [--mode user|layout|ftp] [--server N] [--log-type T]\n"
    "                      [--log-line TEXT] [--target PATH]\n"
    "                      run the export writer for FORMAT on a story and copy its output\n"
    "                      to OUT\n"
    "  uuencode FILE       print the uuencoded form of a file, as a mail attachment\n"
    "  workflow add STORY [--no-control]\n"
    "                      control a story and stage it in the send list\n"
    "  workflow list       print the send list\n"
    "  workflow remove NAME\n"
    "                      take a story out of the send list\n"
    "  workflow send DESTINATION [--all-users]\n"
    "                      send the whole list to a user, a group or a layout system\n"
    "  workflow message DESTINATION TEXT\n"
    "                      leave a message in a user's inbox\n"
    "  logs STORY          print a story's logs\n"
    "  logs days           print the dates of the daily log pages\n"
    "  document rtf|xsl|pdf STORY\n"
    "                      write the story as RTF, through the style sheet, or as PDF beside it\n"
    "  spell STORY         print the unknown words of a story with their box and suggestions\n"
    "  synonyms WORD       print the synonyms offered for a word\n"
    "  stats STORY [--unknown]\n"
    "                      print the word statistics of a story; --unknown marks the words\n"
    "                      that the spelling dictionary does not know\n"
    "  ftp list N [DIR] [--user U] [--password P]\n"
    "                      print the remote listing of the configured FTP server N\n"
    "  ftp send N          send the whole send list to the configured FTP server N\n"
    "  mail send [--story STORY [--xml] [--attachments]] [--to ADDRESS]... [--subject TEXT]\n"
    "            [--server HOST] [--port N] [--verbose] [TEXT]\n"
    "                      mail a text, or a story with its files uuencoded\n"
    "  update              the configuration update of start-up from UpdatesDirectory\n"
    "  login --user NAME (--ftp SERVER [--ftp-user U --ftp-password P] | --folder DIR)\n"
    "                      the first login: fetch and install the user's configuration\n"
    "  select NAME [--tip TIP] | select --tip TIP | select --list\n"
    "                      choose a named configuration or tip of the day\n"
    "  inbox               one pass of the inbox watcher: message, or the inboxes waiting\n"
    "  receive list | receive get NAME [--group] | receive all\n"
    "                      list or take the stories waiting in the user's inboxes\n"
    "  intercept list | intercept get USER NAME\n"
    "                      list or take the stories waiting for intercepted users\n"
    "  track [--by date|author|last-author] [--by-form|--no-by-form]\n"
    "        [--show all|editorial|layout] [--search TEXT] [--match-case]\n"
    "                      print the tracking tree and its counts\n"
    "  track delete NODE-TEXT... | track delete --all\n"
    "                      delete tracking copies as the tree's pop-up entries do\n"
    "  search [--in DIR] [--text TEXT] [--scope all|metadata|text|iptc]\n"
    "         [--operator exact|all|any] [--match-case] [--include-backups]\n"
    "                      search a folder tree of stories; print the listed rows, then the "
    "counts\n"
    "  repository store STORY [--export FORMAT]\n"
    "                      store the story in the repository as a save does (or as the\n"
    "                      layout export in FORMAT does)\n"
    "  news list [--store DIR]\n"
    "                      print the items of the news store, newest first\n"
    "  news show ITEM      print an item's text and whether it was copied\n"
    "\n"
    "  --version           print the program's version\n"
    "  --help              print this list\n";

int Usage(const std::string& problem) {
    std::cerr << "tessarin-cli: " << problem << "\n"
              << "Try 'tessarin-cli --help'.\n";
    return tessarin::cli::kExitUsage;
}

}  // namespace

int main(int argc, char** argv) {
    Arguments args(argv + 1, argv + argc);
    std::optional<std::filesystem::path> appDir, configFile, prefsFile;
    auto answer = tessarin::Answer::Yes;

    std::size_t next = 0;
    for (; next < args.size(); ++next) {
        const std::string& option = args[next];
        if (option == "--version") {
            std::cout << TESSARIN_VERSION << "\n";
            return tessarin::cli::kExitDone;
        }
        if (option == "--help") {
            std::cout << kHelp;
            return tessarin::cli::kExitDone;
        }
        if (option.rfind("--", 0) != 0) break;
        if (next + 1 >= args.size()) return Usage("option " + option + " needs a value");
        const std::string& value = args[++next];
        if (option == "--app-dir") {
            appDir = value;
        } else if (option == "--config") {
            configFile = value;
        } else if (option == "--prefs") {
            prefsFile = value;
        } else if (option == "--answer") {
            if (value == "yes") {
                answer = tessarin::Answer::Yes;
            } else if (value == "no") {
                answer = tessarin::Answer::No;
            } else if (value == "cancel") {
                answer = tessarin::Answer::Cancel;
            } else {
                return Usage("--answer takes yes, no or cancel");
            }
        } else {
            return Usage("unknown option " + option);
        }
    }
    if (next >= args.size()) return Usage("no command given");

    auto paths = tessarin::MakeAppPaths(tessarin::ResolveAppDir(appDir, argv[0]));
    if (!tessarin::CreateStartDirectories(paths)) {
        std::cerr << "Cannot create the application directory " << paths.appDir.string() << "\n";
        return tessarin::cli::kExitRefused;
    }
    CliContext context{paths,
                       configFile.value_or(paths.configurationFile),
                       prefsFile.value_or(paths.preferencesFile),
                       answer,
                       std::cout,
                       std::cerr};

    const std::string command = args[next];
    Arguments rest(args.begin() + static_cast<std::ptrdiff_t>(next) + 1, args.end());
    if (command == "config") return tessarin::cli::RunConfigCommand(context, rest);
    if (command == "story") return tessarin::cli::RunStoryCommand(context, rest);
    if (command == "iptc") return tessarin::cli::RunIptcCommand(context, rest);
    if (command == "export") return tessarin::cli::RunExportCommand(context, rest);
    if (command == "uuencode") return tessarin::cli::RunUuencodeCommand(context, rest);
    if (command == "workflow") return tessarin::cli::RunWorkflowCommand(context, rest);
    if (command == "logs") return tessarin::cli::RunLogsCommand(context, rest);
    if (command == "document") return tessarin::cli::RunDocumentCommand(context, rest);
    if (command == "spell" || command == "synonyms" || command == "stats")
        return tessarin::cli::RunLinguisticsCommand(context, command, rest);
    if (command == "ftp") return tessarin::cli::RunFtpCommand(context, rest);
    if (command == "mail") return tessarin::cli::RunMailCommand(context, rest);
    if (command == "update") return tessarin::cli::RunUpdateCommand(context, rest);
    if (command == "login") return tessarin::cli::RunLoginCommand(context, rest);
    if (command == "select") return tessarin::cli::RunSelectCommand(context, rest);
    if (command == "inbox") return tessarin::cli::RunInboxCommand(context, rest);
    if (command == "receive") return tessarin::cli::RunReceiveCommand(context, rest);
    if (command == "intercept") return tessarin::cli::RunInterceptCommand(context, rest);
    if (command == "track") return tessarin::cli::RunTrackCommand(context, rest);
    if (command == "search") return tessarin::cli::RunSearchCommand(context, rest);
    if (command == "repository") return tessarin::cli::RunRepositoryCommand(context, rest);
    if (command == "news") return tessarin::cli::RunNewsCommand(context, rest);
    return Usage("unknown command " + command);
}
