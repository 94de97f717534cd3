#pragma once

#include <QString>
#include <string_view>

namespace tessarin {

struct EditorSession;
class WindowState;

// The texts of the windows as the newsroom's configuration renames them.

// The caption that the Interface key gives, else design, the text the control was designed
// with. An empty key stands for a text that no key renames. A key that Interface does not have
// is a mistake of the window's code: it is reported as a warning, and design is shown.
QString ConfiguredCaption(const EditorSession& session, std::string_view key,
                          std::string_view design);

// The same caption as a window title or an option takes it from a menu entry: without the
// entry's "&" marks and trailing dots.
QString ConfiguredTitle(const EditorSession& session, std::string_view key,
                        std::string_view design);

// The text of a Messages key ready to show, else design when the configuration has no
// Messages section and so leaves every text empty.
QString ConfiguredMessage(const EditorSession& session, std::string_view key,
                          std::string_view design);

// The caption that the session's window state holds for the control of that name (the core
// sets it from the configuration), else design.
QString ControlCaption(const WindowState& window, std::string_view name, std::string_view design);

}  // namespace tessarin
