#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/window_state.h"
#include "common/clock.h"

namespace tessarin {

// The daily log: one HTML page a day in the logs folder (Upload/Logs), named
// "Log Tessarin yyyy-mm-dd.htm", to which each transmission appends what it sent. Pages are
// written in Windows-1252 with CR LF line ends; a page that cannot be written is passed
// over without a word.

inline constexpr std::string_view kDailyLogPrefix = "Log Tessarin ";
inline constexpr std::string_view kDailyLogExtension = ".htm";

// "Log Tessarin yyyy-mm-dd.htm" for the day.
std::string DailyLogName(const LocalDateTime& day);

// The page of a date as DailyLogDates gives it.
std::filesystem::path DailyLogPageOf(const std::filesystem::path& logsDir, std::string_view date);

// The names of the daily pages in the folder ("Log Tessarin" ... ".htm"), sorted, which is
// their order of age.
std::vector<std::string> DailyLogPages(const std::filesystem::path& logsDir);

// The dates of the daily pages: each name cut to what stands between the prefix and the
// extension, sorted.
std::vector<std::string> DailyLogDates(const std::filesystem::path& logsDir);

// What the head of a new page shows.
struct DailyLogHead {
    OleColour background = Rgb(255, 255, 255);  // the program's background, as RGB
    std::string caption;                        // the caption of ToolsCheckLogs
};

// Before a transmission: when today's page is missing, the oldest pages are deleted so that,
// with today's, keep pages remain; then today's page is made with its head lines: "<html>",
// "<head>", "<title>Logs Tessarin</title>", "</head>", <body bgcolor="#RRGGBB"> (two upper
// case hexadecimal digits each), "<b><center><h1>" caption "</h1></center></b>",
// "<center><h3>" today's long date "</h3></center>". A page that exists is left alone.
void PrepareDailyLog(const std::filesystem::path& logsDir, int keep, const DailyLogHead& head,
                     const LocalDateTime& now);

// The line of one item sent to a destination: for a story
// "<li>hh:mm - <i>" label "</i> <b>" name "</b> - " author " -> " destination "</li>", for an
// image or other file "<ul><li>hh:mm - <i>" label "</i> " name " - " author " -> "
// destination "</li></ul>".
enum class DailyLogItem { Story, Attachment };
std::string DailyLogLine(DailyLogItem item, const LocalDateTime& now, std::string_view label,
                         std::string_view name, std::string_view author,
                         std::string_view destination);

// One transmission batch on today's page: opening appends "<ul>", each Write one line, and
// the end of the batch "</ul><hr>". Nothing is written when the page cannot be opened.
class DailyLogBatch {
  public:
    DailyLogBatch(const std::filesystem::path& logsDir, const LocalDateTime& now);
    ~DailyLogBatch();
    DailyLogBatch(const DailyLogBatch&) = delete;
    DailyLogBatch& operator=(const DailyLogBatch&) = delete;

    void Write(std::string_view line);

  private:
    std::FILE* page_ = nullptr;
};

}  // namespace tessarin
