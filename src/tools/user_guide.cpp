#include "tools/user_guide.h"

namespace tessarin {

std::optional<std::filesystem::path> FindUserGuide(const std::filesystem::path& appDir,
                                                   const std::filesystem::path& programDir) {
    constexpr const char* kGuide = "user-guide.html";
    const std::filesystem::path places[] = {
        appDir / "docs" / kGuide,
        programDir.parent_path() / "share" / "doc" / "tessarin" / kGuide,
        programDir.parent_path() / "docs" / kGuide,
    };
    for (const std::filesystem::path& place : places) {
        std::error_code error;
        if (std::filesystem::is_regular_file(place, error)) return place.lexically_normal();
    }
    return std::nullopt;
}

}  // namespace tessarin
