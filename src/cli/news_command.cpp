#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "common/date_format.h"
#include "config/messages_section.h"
#include "news/news_scan.h"
#include "news/news_show.h"

namespace tessarin::cli {
namespace {

constexpr const char* kNewsUsage =
    "tessarin-cli: usage: news list [--store DIR] | news show ITEM\n";

std::string DefaultMessage(std::string_view key) {
    for (const MessageDefault& message : MessageDefaults()) {
        if (message.key == key) return std::string(message.text);
    }
    return std::string(key);
}

// The live folder of the first news service of the configuration, every category.
bool ConfiguredStore(CliContext& context, std::filesystem::path& store) {
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return false;
    const auto& services = session.configuration.newsServices.services;
    if (services.empty()) {
        context.err << "tessarin-cli: the configuration names no news service; give --store DIR\n";
        return false;
    }
    store = NewsStoreFolder(services.front().repositories, false, "");
    return true;
}

int ListNews(CliContext& context, const Arguments& arguments) {
    std::filesystem::path store;
    if (arguments.size() == 3 && arguments[1] == "--store") {
        store = arguments[2];
    } else if (arguments.size() != 1) {
        context.err << kNewsUsage;
        return kExitUsage;
    } else if (!ConfiguredStore(context, store)) {
        return kExitRefused;
    }
    NewsScanner scanner;
    NewsScanResult result = scanner.Scan(store, {});
    if (result.status == NewsScanStatus::InvalidDirectory) {
        context.err << store.string() << "\n" << DefaultMessage("InvalidDirectory") << "\n";
        return kExitRefused;
    }
    SortNewestFirst(result.rows);
    const int dateOrder = DateOrder();
    for (const NewsRow& row : result.rows) {
        const std::vector<std::string> cells = NewsRowCells(row, dateOrder);
        for (std::size_t i = 0; i < cells.size(); ++i)
            context.out << (i ? "\t" : "") << cells[i];
        context.out << '\n';
    }
    if (result.status == NewsScanStatus::ParseError) {
        context.err << result.parseError << '\n';
        return kExitRefused;
    }
    return kExitDone;
}

int ShowNews(CliContext& context, const std::string& item) {
    const ShownNewsItem shown = ShowNewsItem(item);
    if (!shown.read) {
        context.err << shown.parseError << '\n';
        return kExitRefused;
    }
    context.out << shown.view.text << '\n' << CopyStateText(shown.state) << '\n';
    return kExitDone;
}

}  // namespace

int RunNewsCommand(CliContext& context, const Arguments& arguments) {
    if (!arguments.empty() && arguments[0] == "list") return ListNews(context, arguments);
    if (arguments.size() == 2 && arguments[0] == "show" && !arguments[1].starts_with("-"))
        return ShowNews(context, arguments[1]);
    context.err << kNewsUsage;
    return kExitUsage;
}

}  // namespace tessarin::cli
