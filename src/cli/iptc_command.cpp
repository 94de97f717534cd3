#include "cli/iptc_command.h"

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <system_error>
#include <vector>

#include "app/window_state.h"
#include "attachments/iptc_display.h"
#include "attachments/iptc_reader.h"
#include "config/configuration.h"
#include "config/load_configuration.h"
#include "config/preferences.h"
#include "config/profile_file.h"

namespace tessarin::cli {
namespace {

struct IptcArguments {
    std::vector<std::string> pictures;  // as given on the command line
    bool macintoshAccents = false;
};

std::optional<IptcArguments> ParseIptc(const Arguments& arguments) {
    IptcArguments parsed;
    for (const std::string& argument : arguments) {
        if (argument == "--mac") {
            parsed.macintoshAccents = true;
        } else if (!argument.empty() && !argument.starts_with("-")) {
            parsed.pictures.push_back(argument);
        } else {
            return std::nullopt;
        }
    }
    if (parsed.pictures.empty()) return std::nullopt;
    return parsed;
}

// The labels the configuration gives the datasets; without a configuration document, or
// with one that stops before its Interface section, the English defaults.
InterfaceSettings ConfiguredLabels(const CliContext& context) {
    Configuration configuration;
    std::error_code error;
    if (std::filesystem::exists(context.configurationFile, error)) {
        const ProfileFile profile(context.preferencesFile);
        WindowState window;
        LoadConfiguration(context.configurationFile, profile, ReadPreferences(profile),
                          configuration, window);
    }
    return configuration.interface;
}

}  // namespace

int RunIptcCommand(CliContext& context, const Arguments& arguments) {
    const std::optional<IptcArguments> parsed = ParseIptc(arguments);
    if (!parsed) {
        context.err << "tessarin-cli: usage: iptc PICTURE... [--mac]\n";
        return kExitUsage;
    }
    const bool several = parsed->pictures.size() > 1;
    std::optional<InterfaceSettings> labels;
    bool everyPictureRead = true;
    for (const std::string& picture : parsed->pictures) {
        std::error_code error;
        if (!std::filesystem::is_regular_file(picture, error)) {
            context.err << "Cannot read the file " << picture << '\n';
            everyPictureRead = false;
            continue;
        }
        if (several) context.out << "== " << picture << '\n';
        const IptcData data = ReadIptc(picture);
        if (data.shortRead) context.err << "Error reading file ...\n";
        if (data.Empty()) continue;

        if (!labels) labels = ConfiguredLabels(context);
        for (const IptcDisplayLine& line :
             IptcDisplayLines(data, *labels, parsed->macintoshAccents)) {
            context.out << line.label << ": " << line.value << '\n';
        }
        for (const std::string& line : IptcSegmentLines(data, parsed->macintoshAccents))
            context.out << line << '\n';
    }
    return everyPictureRead ? kExitDone : kExitRefused;
}

}  // namespace tessarin::cli
