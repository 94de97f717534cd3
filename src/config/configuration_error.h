#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "app/window_state.h"

namespace tessarin {

// Shows what the configuration document lacks in the first status panel, with the error
// picture and a beep: "Error: ", the document's path, then the given text, which says what
// is missing (" - missing section 'Story'").
inline void ReportConfigurationError(WindowState& window, const std::filesystem::path& document,
                                     std::string_view missing) {
    window.ShowStatusError("Error: " + document.string() + std::string(missing));
}

}  // namespace tessarin
