#pragma once

#include <filesystem>

class QTextEdit;

namespace tessarin {

struct Preferences;
struct SearchQuery;

// Shows the text boxes of a story file in the preview with their formats, notes left out,
// with the words of the query (the whole text for the exact expression) marked wherever they
// stand; nothing is marked for a query without text or without query. A file that does not
// parse shows nothing.
void ShowStoryPreview(QTextEdit& preview, const std::filesystem::path& story,
                      const Preferences& preferences, const SearchQuery* query = nullptr);

}  // namespace tessarin
