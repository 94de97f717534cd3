#include "ui/configured_caption.h"

#include <QtGlobal>
#include <algorithm>

#include "config/interface_section.h"
#include "session/editor_session.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

bool IsInterfaceKey(std::string_view key) {
    const auto keys = InterfaceKeys();
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

QString ConfiguredCaption(const EditorSession& session, std::string_view key,
                          std::string_view design) {
    if (key.empty()) return ToQString(design);
    if (!IsInterfaceKey(key)) {
        qWarning("no Interface key %.*s", static_cast<int>(key.size()), key.data());
    }
    const std::string& caption = session.configuration.interface.Caption(key);
    return ToQString(caption.empty() ? design : std::string_view(caption));
}

QString ConfiguredTitle(const EditorSession& session, std::string_view key,
                        std::string_view design) {
    QString text = ConfiguredCaption(session, key, design);
    text.remove(QLatin1Char('&'));
    while (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

QString ConfiguredMessage(const EditorSession& session, std::string_view key,
                          std::string_view design) {
    const std::string text = session.Message(key);
    return ToQString(text.empty() ? design : std::string_view(text));
}

QString ControlCaption(const WindowState& window, std::string_view name, std::string_view design) {
    const ControlState* control = window.FindControl(name);
    return ToQString(control != nullptr && !control->caption.empty()
                         ? std::string_view(control->caption)
                         : design);
}

}  // namespace tessarin
