#include "app/app_paths.h"

#include <unistd.h>
#include <cstdlib>

#include "common/temporary_files.h"

namespace tessarin {
namespace fs = std::filesystem;

namespace {

std::optional<fs::path> Environment(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') return std::nullopt;
    return fs::path(value);
}

}  // namespace

fs::path ResolveAppDir(const std::optional<fs::path>& given, const fs::path& executable) {
    if (given && !given->empty()) return fs::absolute(*given);
    if (auto home = Environment("TESSARIN_HOME")) return fs::absolute(*home);
    auto exeDir = executable.parent_path();
    std::error_code error;
    if (!exeDir.empty() && fs::exists(exeDir / "Tessarin.xml", error) &&
        access(exeDir.c_str(), W_OK) == 0) {
        return fs::absolute(exeDir);
    }
    if (auto data = Environment("XDG_DATA_HOME")) return *data / "tessarin";
    auto userHome = Environment("HOME").value_or(fs::temp_directory_path());
    return userHome / ".local" / "share" / "tessarin";
}

AppPaths MakeAppPaths(const fs::path& appDir) {
    AppPaths paths;
    paths.appDir = appDir;
    paths.preferencesFile = appDir / "Tessarin.ini";
    paths.configurationFile = appDir / "Tessarin.xml";
    paths.tipFile = appDir / "TipOfTheDay.xml";
    paths.uploadDir = appDir / "Upload";
    paths.logsDir = paths.uploadDir / "Logs";
    paths.xsltDir = appDir / "XSLT";
    return paths;
}

bool CreateStartDirectories(const AppPaths& paths) {
    for (const auto& dir : {paths.appDir, paths.uploadDir, paths.logsDir, paths.xsltDir}) {
        std::error_code error;
        fs::create_directories(dir, error);
        if (!fs::is_directory(dir, error)) return false;
        RemoveStaleTemporaryFilesIn(dir);
    }
    return true;
}

}  // namespace tessarin
