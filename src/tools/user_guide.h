#pragma once

#include <filesystem>
#include <optional>

namespace tessarin {

// The user guide that the Help menu opens, user-guide.html: the first that exists of the
// application directory's docs folder (a newsroom's own guide), the guide installed with the
// program (<prefix>/share/doc/tessarin beside the program's bin folder) and the guide of the
// source tree that the program was built in (the program in build/, the guide in docs/).
std::optional<std::filesystem::path> FindUserGuide(const std::filesystem::path& appDir,
                                                   const std::filesystem::path& programDir);

}  // namespace tessarin
