#include "app/configuration_selection.h"

#include <algorithm>
#include <optional>
#include <system_error>

#include "app/configuration_update.h"
#include "common/file_copy.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr std::string_view kConfigurationPrefix = "Tessarin-";
constexpr std::string_view kTipPrefix = "TipOfTheDay-";
constexpr std::size_t kExtensionLength = 4;

// The shown name of a file that the wildcard "<prefix>*.*" finds, or nothing.
std::optional<std::string> ShownName(const std::string& file, std::string_view prefix) {
    if (!file.starts_with(prefix) || file.find('.', prefix.size()) == std::string::npos)
        return std::nullopt;
    if (file.size() < prefix.size() + kExtensionLength) return std::nullopt;
    return file.substr(prefix.size(), file.size() - prefix.size() - kExtensionLength);
}

std::string CopyNamed(const fs::path& appDir, std::string_view prefix, std::string_view name,
                      const fs::path& target) {
    const fs::path source = appDir / (std::string(prefix) + std::string(name) + ".xml");
    const std::string problem = CopyFileWhole(source, target);
    return problem.empty() ? problem : source.string() + ": " + problem;
}

}  // namespace

NamedDocuments ListNamedDocuments(const fs::path& appDir) {
    NamedDocuments documents;
    std::error_code error;
    for (fs::directory_iterator entry(appDir, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!entry->is_regular_file(error)) continue;
        const std::string file = entry->path().filename().string();
        if (auto name = ShownName(file, kConfigurationPrefix))
            documents.configurations.push_back(*name);
        if (auto name = ShownName(file, kTipPrefix)) documents.tips.push_back(*name);
    }
    std::sort(documents.configurations.begin(), documents.configurations.end());
    std::sort(documents.tips.begin(), documents.tips.end());
    return documents;
}

bool SelectConfiguration(EditorSession& session, std::string_view name, std::string& problem) {
    problem = CopyNamed(session.paths.appDir, kConfigurationPrefix, name,
                        session.paths.configurationFile);
    if (!problem.empty()) return false;
    return ReloadConfiguration(session);
}

std::string SelectTipOfTheDay(const AppPaths& paths, std::string_view name) {
    return CopyNamed(paths.appDir, kTipPrefix, name, paths.tipFile);
}

}  // namespace tessarin
