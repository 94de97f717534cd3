#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "session/editor_session.h"

namespace tessarin {

// The named documents that lie in the application directory beside the ones in use:
// configurations "Tessarin-<name>.xml" and tips of the day "TipOfTheDay-<name>.xml". Choosing
// one copies it over Tessarin.xml or TipOfTheDay.xml; no backup is made.

struct NamedDocuments {
    std::vector<std::string> configurations;
    std::vector<std::string> tips;
};

// Each file "Tessarin-*.*" (and "TipOfTheDay-*.*") of the folder, in name order, shown with
// the word and its dash cut at the front and its last four characters at the end. A name
// without the dash, or without a dot after it, is not offered.
NamedDocuments ListNamedDocuments(const std::filesystem::path& appDir);

// "Tessarin-<name>.xml" copied over the configuration document and loaded; true when the load
// read it whole. A failed copy gives false with its reason in `problem`; what the load found
// goes to the status panel, as at start.
bool SelectConfiguration(EditorSession& session, std::string_view name, std::string& problem);

// "TipOfTheDay-<name>.xml" copied over TipOfTheDay.xml; the reason of a failure, or empty.
std::string SelectTipOfTheDay(const AppPaths& paths, std::string_view name);

}  // namespace tessarin
