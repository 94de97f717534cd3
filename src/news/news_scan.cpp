#include "news/news_scan.h"

#include <algorithm>
#include <system_error>

#include "common/folder_listing.h"
#include "common/number_parse.h"
#include "common/parallel_work.h"
#include "common/utf8.h"
#include "news/news_item_text.h"
#include "text/styled_text_search.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// Files read in parallel before their rows are handed on: small enough for the list to fill
// steadily, large enough to keep every core busy.
constexpr std::size_t kBatchSize = 256;

bool IsItemName(std::string_view name) {
    if (name.size() < 4) return false;
    std::string extension(name.substr(name.size() - 4));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".xml";
}

// The name up to its first NUL.
std::string NameUpToNul(const std::string& name) {
    return name.substr(0, name.find('\0'));
}

}  // namespace

std::string NewsRow::ShownHeadline() const {
    return log ? "!!" + entry.headline : entry.headline;
}

std::string FormatWordCount(std::string_view words) {
    std::string digits = std::to_string(ParseLeadingInteger(words));
    if (digits.size() < 4 && digits.front() != '-') digits.insert(0, 4 - digits.size(), '0');
    return digits;
}

std::vector<std::string> NewsRowCells(const NewsRow& row, int dateOrder,
                                      const NewsDateFormats& dateForms) {
    const NewsEntry& entry = row.entry;
    return {NewsDateCell(entry.rawDate, dateOrder, dateForms),
            row.ShownHeadline(),
            entry.slug,
            entry.subject,
            std::to_string(entry.priority),
            std::to_string(entry.revision),
            FormatWordCount(entry.words),
            entry.rawDate};
}

std::vector<std::size_t> WordPositions(std::u16string_view text, std::u16string_view word) {
    std::vector<std::size_t> found;
    if (word.empty()) return found;
    PatternMatcher matcher(word, false);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (matcher.Feed(text[i])) found.push_back(i + 1 - word.size());
    }
    return found;
}

bool PassesFilters(const NewsRow& row, const NewsFilters& filters) {
    const std::string_view day = std::string_view(row.entry.rawDate).substr(0, 8);
    if (!filters.fromDate.empty() && day < filters.fromDate) return false;
    if (!filters.toDate.empty() && day > filters.toDate) return false;
    return filters.word.empty() ||
           !WordPositions(Utf8ToUtf16(row.text), Utf8ToUtf16(filters.word)).empty();
}

void SortNewestFirst(std::vector<NewsRow>& rows) {
    std::stable_sort(rows.begin(), rows.end(), [](const NewsRow& a, const NewsRow& b) {
        if (a.entry.rawDate != b.entry.rawDate) return a.entry.rawDate > b.entry.rawDate;
        return a.fileName < b.fileName;
    });
}

fs::path NewsStoreFolder(std::string_view repositories, bool archive,
                         std::string_view categoryFormalName) {
    const std::size_t bar = repositories.find('|');
    const std::string_view live = repositories.substr(0, bar);
    const std::string_view archives =
        bar == std::string_view::npos ? std::string_view() : repositories.substr(bar + 1);
    const std::string_view chosen = archive ? archives : live;
    if (chosen.empty()) return {};
    fs::path folder{std::string(chosen)};
    if (!categoryFormalName.empty()) folder /= std::string(categoryFormalName);
    return folder;
}

std::shared_ptr<const NewsScanner::Item> NewsScanner::ReadItem(const fs::path& file,
                                                               bool withText) {
    auto item = std::make_shared<Item>();
    XmlDocument document;
    if (!document.LoadFile(file)) {
        item->parseError = NewsScanParseError(NameUpToNul(file.filename().string()),
                                              document.ParseError().value_or(XmlParseError{}));
        return item;
    }
    item->entry = ReadNewsEntry(document);
    item->withText = withText;
    if (withText) item->text = ReadNewsItemView(document).text;
    return item;
}

NewsScanResult NewsScanner::Scan(const fs::path& folder, const NewsFilters& filters,
                                 const RowsReady& onRows) {
    NewsScanResult result;
    std::error_code error;
    if (folder.empty() || !fs::is_directory(folder, error)) {
        result.status = NewsScanStatus::InvalidDirectory;
        return result;
    }
    std::vector<StampedFile> files = ListStampedFiles(folder);
    std::map<std::string, bool, std::less<>> logs;
    std::erase_if(files, [&](const StampedFile& file) {
        if (file.name.size() > 4 && file.name.ends_with(".log")) logs[file.name] = true;
        return !IsItemName(file.name);
    });

    std::map<std::string, Known, std::less<>> current;
    for (std::size_t first = 0; first < files.size(); first += kBatchSize) {
        const std::size_t count = std::min(kBatchSize, files.size() - first);
        std::vector<Known*> batch(count);
        std::vector<bool> withText(count);
        std::vector<std::size_t> toRead;
        for (std::size_t i = 0; i < count; ++i) {
            const StampedFile& file = files[first + i];
            Known& known = current[file.name];
            batch[i] = &known;
            withText[i] = !filters.word.empty() ||
                          logs.contains(CompanionLogPath(file.name).filename().string());
            const auto earlier = known_.find(file.name);
            if (earlier != known_.end() && earlier->second.size == file.size &&
                earlier->second.modified == file.modified &&
                (earlier->second.item->withText || !withText[i])) {
                known = std::move(earlier->second);
            } else {
                known = {file.size, file.modified, nullptr};
                toRead.push_back(i);
            }
        }
        ForEachInParallel(toRead.size(), [&](std::size_t index) {
            const std::size_t i = toRead[index];
            batch[i]->item = ReadItem(folder / files[first + i].name, withText[i]);
        });

        const std::size_t rowsBefore = result.rows.size();
        for (std::size_t i = 0; i < count; ++i) {
            const Item& item = *batch[i]->item;
            if (!item.parseError.empty()) {
                result.status = NewsScanStatus::ParseError;
                result.parseError = item.parseError;
                break;
            }
            NewsRow row{NameUpToNul(files[first + i].name), item.entry, item.text, {}, {}};
            const fs::path path = folder / row.fileName;
            if (logs.contains(CompanionLogPath(path).filename().string())) {
                row.log = ReadNewsLog(path);
                row.state = CopyStateOf(row.log, Utf8ToUtf16(row.text).size());
            }
            if (PassesFilters(row, filters)) result.rows.push_back(std::move(row));
        }
        if (onRows && result.rows.size() > rowsBefore)
            onRows(std::span(result.rows).subspan(rowsBefore));
        if (result.status != NewsScanStatus::Done) break;
    }
    // A scan stopped by a bad item keeps what earlier scans read of the files after it.
    for (const StampedFile& file : files) {
        const auto earlier = known_.find(file.name);
        if (earlier != known_.end()) current.try_emplace(file.name, std::move(earlier->second));
    }
    known_ = std::move(current);
    return result;
}

}  // namespace tessarin
