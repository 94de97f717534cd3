#pragma once

#include <QString>
#include <string_view>

namespace tessarin {

// A configured tool tip as the window shows it: each two-character "\n" that the newsroom
// wrote in it starts a new line. Every tool tip that comes from the configuration or the
// window state goes through here.
QString ToolTipText(std::string_view configured);

}  // namespace tessarin
