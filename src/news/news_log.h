#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

struct NewsServicesSettings;

// The companion log of an agency item: "<item name without extension>.log" beside it. Each
// copy from the item appends one line, so colleagues on other workstations see at their next
// scan that the item was used, and how much of it.
//
// A copy line reads "<user> <date> <hh:mm>\<start> <length>": who took text and when, then the
// range taken in the item's text, in UTF-16 code units. A line without "\" is a comment shown
// with the item; a line whose range does not read as two numbers is ignored.

std::filesystem::path CompanionLogPath(const std::filesystem::path& item);

// How much of an item has been taken into stories.
enum class NewsCopyState { NotCopied, CopiedInPart, Copied };

// The colour of a marked row and of its copied ranges: the news section's colour of an item
// copied whole, else of one copied in part.
std::uint32_t MarkColour(NewsCopyState state, const NewsServicesSettings& settings);

// The words of a copy state: "not copied", "copied in part", "copied".
std::string_view CopyStateText(NewsCopyState state);

struct NewsMark {
    std::size_t start = 0;
    std::size_t length = 0;
    friend bool operator==(const NewsMark&, const NewsMark&) = default;
};

// What the companion log of an item says.
struct NewsLog {
    std::vector<NewsMark> marks;        // the ranges copied, in the log's order
    std::vector<std::string> comments;  // the lines without "\"
    std::string note;                   // every line of the log, each ending in CR LF
};

// Reads the log's bytes (lines ending in CR LF, LF or CR).
NewsLog ParseNewsLog(std::string_view bytes);

// The item's companion log; nothing when it does not exist.
std::optional<NewsLog> ReadNewsLog(const std::filesystem::path& item);

// The state that a log gives to an item whose text has textLength code units: copied when a
// range covers the whole text, in part when there is any other range or comment, not copied
// without a log.
NewsCopyState CopyStateOf(const std::optional<NewsLog>& log, std::size_t textLength);

// The line a copy appends, CR LF included.
std::string CopyLogLine(std::string_view user, std::string_view date, std::string_view time,
                        const NewsMark& range);

// Appends the line to the item's companion log in one write, making the log when it is
// missing; several workstations may append at once. False when the log cannot be written.
bool AppendCopyLine(const std::filesystem::path& item, std::string_view line);

}  // namespace tessarin
