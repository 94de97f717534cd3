#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "common/xml_document.h"
#include "logs/daily_log.h"

namespace tessarin::cli {
namespace {

constexpr const char* kLogsUsage = "tessarin-cli: usage: logs STORY | logs days\n";

// The story's logs in file order, as its reader takes them: each Log of Logs that has a
// text, its Type (empty when it has none), a tab, its text.
int PrintStoryLogs(CliContext& context, const std::string& story) {
    XmlDocument document;
    if (!document.LoadFile(story)) {
        context.err << FormatParseErrorStatus(story,
                                              document.ParseError().value_or(XmlParseError{}))
                    << '\n';
        return kExitRefused;
    }
    for (const XmlNode& log : document.DocumentElement().SelectNodes("Logs/Log")) {
        const std::string text = log.Text();
        if (!text.empty()) context.out << log.Attribute("Type") << '\t' << text << '\n';
    }
    return kExitDone;
}

}  // namespace

int RunLogsCommand(CliContext& context, const Arguments& arguments) {
    if (arguments.size() != 1 || arguments[0].empty() || arguments[0].starts_with("-")) {
        context.err << kLogsUsage;
        return kExitUsage;
    }
    if (arguments[0] != "days") return PrintStoryLogs(context, arguments[0]);
    for (const std::string& date : DailyLogDates(context.paths.logsDir))
        context.out << date << '\n';
    return kExitDone;
}

}  // namespace tessarin::cli
