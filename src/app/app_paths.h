#pragma once

#include <filesystem>
#include <optional>

namespace tessarin {

// The program's own files, all in or below the application directory.
struct AppPaths {
    std::filesystem::path appDir;
    std::filesystem::path preferencesFile;    // Tessarin.ini
    std::filesystem::path configurationFile;  // Tessarin.xml
    std::filesystem::path tipFile;            // TipOfTheDay.xml
    std::filesystem::path uploadDir;          // Upload/
    std::filesystem::path logsDir;            // Upload/Logs/
    std::filesystem::path xsltDir;            // XSLT/
};

// The application directory: the one given (--app-dir), else $TESSARIN_HOME, else the
// executable's directory when it holds Tessarin.xml and is writable, else
// $XDG_DATA_HOME/tessarin (~/.local/share/tessarin).
std::filesystem::path ResolveAppDir(const std::optional<std::filesystem::path>& given,
                                    const std::filesystem::path& executable);

AppPaths MakeAppPaths(const std::filesystem::path& appDir);

// Creates the application directory, then Upload, Upload/Logs and XSLT when missing, in
// that order, and removes from each the temporary files that a killed writer of this
// program left there (temporary_files.h). False when one of them cannot be made.
bool CreateStartDirectories(const AppPaths& paths);

}  // namespace tessarin
