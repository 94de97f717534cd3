#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "news/news_item.h"
#include "news/news_list_preferences.h"
#include "news/news_log.h"

namespace tessarin {

// One row of the news list: an item of the store with what its companion log says.
struct NewsRow {
    std::string fileName;  // the row's tag
    NewsEntry entry;
    // The item's text as the window shows it, read only when the word filter or the
    // companion log needs it.
    std::string text;
    std::optional<NewsLog> log;
    NewsCopyState state = NewsCopyState::NotCopied;

    // "!!" before the headline of an item with a companion log.
    std::string ShownHeadline() const;
    // The priorities below 3 are urgent and shown in bold.
    bool Bold() const { return entry.priority < 3; }
};

// The cells of a row in the list's order: the date cell in the forms asked; then the headline
// as shown, slug, subject, priority, revision, the words count as four digits (more when it
// is larger) and the raw date.
std::vector<std::string> NewsRowCells(const NewsRow& row, int dateOrder,
                                      const NewsDateFormats& dateForms = {});

// The words count of an item as the list shows it: "0000" form, its leading number.
std::string FormatWordCount(std::string_view words);

// Where the word is found in text, ignoring case, as UTF-16 offsets of each occurrence from
// the first; empty for an empty word.
std::vector<std::size_t> WordPositions(std::u16string_view text, std::u16string_view word);

// The filters of the news window. Dates are "yyyymmdd", compared with the item's date; an
// empty value filters nothing.
struct NewsFilters {
    std::string fromDate;
    std::string toDate;
    std::string word;  // kept when the item's text holds it, in any case
};
bool PassesFilters(const NewsRow& row, const NewsFilters& filters);

// Newest first, by raw date, then by file name.
void SortNewestFirst(std::vector<NewsRow>& rows);

// The folders of the news store: each service has its live folder and, maybe, an archive
// folder, kept as "live|archive" (each with a final separator). A category other than the
// entry for every category is a folder of that formal name inside them.
std::filesystem::path NewsStoreFolder(std::string_view repositories, bool archive,
                                      std::string_view categoryFormalName);

enum class NewsScanStatus { Done, InvalidDirectory, ParseError };

struct NewsScanResult {
    NewsScanStatus status = NewsScanStatus::Done;
    std::string parseError;     // the message of the item that stopped the scan
    std::vector<NewsRow> rows;  // in the order of the files' names, filtered
};

// The scan of a store folder for the news list. The folder's "*.xml" files are read in name
// order, in batches read in parallel; an item whose name, size and modification time are
// those of an earlier scan is taken from that scan. Each batch of rows that pass the filters
// is handed to onRows as soon as it is read. An item that does not parse stops the scan
// there, with the rows read before it. The companion logs are read at every scan: colleagues
// append to them.
class NewsScanner {
  public:
    using RowsReady = std::function<void(std::span<const NewsRow>)>;
    NewsScanResult Scan(const std::filesystem::path& folder, const NewsFilters& filters,
                        const RowsReady& onRows = {});

  private:
    struct Item {
        NewsEntry entry;
        bool withText = false;  // text read: a reading without it is done again when needed
        std::string text;
        std::string parseError;  // empty when the item read
    };
    struct Known {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type modified;
        std::shared_ptr<const Item> item;
    };
    static std::shared_ptr<const Item> ReadItem(const std::filesystem::path& file, bool withText);

    std::map<std::string, Known, std::less<>> known_;
};

}  // namespace tessarin
