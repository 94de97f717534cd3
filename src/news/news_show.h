#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "news/news_item_text.h"
#include "news/news_log.h"

namespace tessarin {

// One item as the news window shows it beside the list (ShowNewsItem).
struct ShownNewsItem {
    bool read = false;       // false: the file did not parse
    std::string parseError;  // what the text pane shows then
    NewsItemView view;
    std::optional<NewsLog> log;  // the companion log, when there is one
    NewsCopyState state = NewsCopyState::NotCopied;

    // What the text pane shows: the item's text, or the parse error.
    const std::string& PaneText() const { return read ? view.text : parseError; }
};

ShownNewsItem ShowNewsItem(const std::filesystem::path& item);

}  // namespace tessarin
