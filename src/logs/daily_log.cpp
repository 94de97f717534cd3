#include "logs/daily_log.h"

#include <algorithm>
#include <cstdio>
#include <system_error>

#include "common/date_format.h"
#include "common/folder_listing.h"
#include "common/windows1252.h"
#include "config/colours.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Among the ".htm" files, those that "Log Tessarin*.htm" matches.
bool IsDailyLogName(std::string_view name) {
    constexpr std::string_view kStem = "Log Tessarin";
    return name.size() >= kStem.size() + kDailyLogExtension.size() && name.starts_with(kStem);
}

std::string TwoHexDigits(int value) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    return {kDigits[(value >> 4) & 0x0F], kDigits[value & 0x0F]};
}

std::string HeadLines(const DailyLogHead& head, const LocalDateTime& now) {
    const ColourComponents colour = SplitColour(head.background);
    const std::string lines[] = {
        "<html>",
        "<head>",
        "<title>Logs Tessarin</title>",
        "</head>",
        "<body bgcolor=\"#" + TwoHexDigits(colour.red) + TwoHexDigits(colour.green) +
            TwoHexDigits(colour.blue) + "\">",
        "<b><center><h1>" + head.caption + "</h1></center></b>",
        "<center><h3>" + FormatLongDate(now) + "</h3></center>",
    };
    std::string text;
    for (const std::string& line : lines)
        text += Utf8ToWindows1252(line) + std::string(kLineEnd);
    return text;
}

void AppendToFile(const fs::path& page, std::string_view bytes) {
    if (std::FILE* file = std::fopen(page.c_str(), "ab")) {
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
}

}  // namespace

std::string DailyLogName(const LocalDateTime& day) {
    return std::string(kDailyLogPrefix) + FormatDate(day, "yyyy-MM-dd", DateLanguage::English) +
           std::string(kDailyLogExtension);
}

fs::path DailyLogPageOf(const fs::path& logsDir, std::string_view date) {
    return logsDir /
           (std::string(kDailyLogPrefix) + std::string(date) + std::string(kDailyLogExtension));
}

std::vector<std::string> DailyLogPages(const fs::path& logsDir) {
    std::vector<std::string> pages = NamesWithExtension(logsDir, kDailyLogExtension);
    std::erase_if(pages, [](const std::string& name) { return !IsDailyLogName(name); });
    return pages;
}

std::vector<std::string> DailyLogDates(const fs::path& logsDir) {
    std::vector<std::string> dates;
    for (const std::string& page : DailyLogPages(logsDir)) {
        const std::size_t start = std::min(kDailyLogPrefix.size(), page.size());
        const std::size_t end = page.size() - kDailyLogExtension.size();
        dates.push_back(start < end ? page.substr(start, end - start) : std::string());
    }
    std::sort(dates.begin(), dates.end());
    return dates;
}

void PrepareDailyLog(const fs::path& logsDir, int keep, const DailyLogHead& head,
                     const LocalDateTime& now) {
    const fs::path today = logsDir / DailyLogName(now);
    std::error_code error;
    if (fs::exists(today, error)) return;
    std::vector<std::string> pages = DailyLogPages(logsDir);
    const std::size_t kept = keep > 1 ? static_cast<std::size_t>(keep - 1) : 0;
    for (std::size_t oldest = 0; pages.size() - oldest > kept; ++oldest)
        fs::remove(logsDir / pages[oldest], error);
    AppendToFile(today, HeadLines(head, now));
}

std::string DailyLogLine(DailyLogItem item, const LocalDateTime& now, std::string_view label,
                         std::string_view name, std::string_view author,
                         std::string_view destination) {
    const std::string who = " - " + std::string(author) + " -> " + std::string(destination);
    const std::string start =
        "<li>" + FormatTimeHourMinute(now) + " - <i>" + std::string(label) + "</i> ";
    if (item == DailyLogItem::Story)
        return start + "<b>" + std::string(name) + "</b>" + who + "</li>";
    return "<ul>" + start + std::string(name) + who + "</li></ul>";
}

DailyLogBatch::DailyLogBatch(const fs::path& logsDir, const LocalDateTime& now)
    : page_(std::fopen((logsDir / DailyLogName(now)).c_str(), "ab")) {
    Write("<ul>");
}

DailyLogBatch::~DailyLogBatch() {
    Write("</ul><hr>");
    if (page_ != nullptr) std::fclose(page_);
}

void DailyLogBatch::Write(std::string_view line) {
    if (page_ == nullptr) return;
    const std::string bytes = Utf8ToWindows1252(line) + std::string(kLineEnd);
    std::fwrite(bytes.data(), 1, bytes.size(), page_);
}

}  // namespace tessarin
