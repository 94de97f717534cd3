#include "cli/iptc_command.h"

#include <filesystem>
#include <optional>
#include <ostream>
#include <system_error>

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
    std::filesystem::path picture;
    bool macintoshAccents = false;
};

std::optional<IptcArguments> ParseIptc(const Arguments& arguments) {
    IptcArguments parsed;
    bool havePicture = false;
    for (const std::string& argument : arguments) {
        if (argument == "--mac") {
            parsed.macintoshAccents = true;
        } else if (!havePicture && !argument.empty() && !argument.starts_with("-")) {
            parsed.picture = argument;
            havePicture = true;
        } else {
            return std::nullopt;
        }
    }
    if (!havePicture) return std::nullopt;
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
        context.err << "tessarin-cli: usage: iptc PICTURE [--mac]\n";
        return kExitUsage;
    }
    std::error_code error;
    if (!std::filesystem::is_regular_file(parsed->picture, error)) {
        context.err << "Cannot read the file " << parsed->picture.string() << '\n';
        return kExitRefused;
    }
    const IptcData data = ReadIptc(parsed->picture);
    if (data.shortRead) context.err << "Error reading file ...\n";
    if (data.Empty()) return kExitDone;

    const InterfaceSettings labels = ConfiguredLabels(context);
    for (const IptcDisplayLine& line : IptcDisplayLines(data, labels, parsed->macintoshAccents)) {
        context.out << line.label << ": " << line.value << '\n';
    }
    for (const IptcUnnamedDataset& dataset : data.unnamed) {
        context.out << "Segment " << dataset.number << ": "
                    << DisplayText(dataset.text, parsed->macintoshAccents) << '\n';
    }
    return kExitDone;
}

}  // namespace tessarin::cli
