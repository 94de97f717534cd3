#include "ui/window_placement.h"

#include <QSplitter>
#include <QWidget>
#include <string>

#include "config/profile_values.h"

namespace tessarin {
namespace {

constexpr int kMaximised = 2;

}  // namespace

void RestoreWindowPlacement(QWidget& window, const ProfileContents& stored,
                            const WindowPlacementKeys& keys) {
    window.resize(ReadInteger(stored, keys.section, "Width", keys.designSize.width()),
                  ReadInteger(stored, keys.section, "Height", keys.designSize.height()));
    if (const auto left = ReadOptionalInteger(stored, keys.section, "Left"))
        window.move(*left, ReadInteger(stored, keys.section, "Top", 0));
    if (ReadInteger(stored, keys.section, "WindowState", 0) == kMaximised)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    if (keys.splitter == nullptr) return;
    if (const auto first = ReadOptionalInteger(stored, keys.section, keys.splitterKey)) {
        const bool vertical = keys.splitter->orientation() == Qt::Vertical;
        const int whole = vertical ? window.height() : window.width();
        keys.splitter->setSizes({*first, std::max(whole - *first, 0)});
    }
}

std::vector<ProfileEntry> WindowPlacementEntries(const QWidget& window,
                                                 const WindowPlacementKeys& keys) {
    const QRect normal =
        window.normalGeometry().isValid() ? window.normalGeometry() : window.geometry();
    const std::string section(keys.section);
    std::vector<ProfileEntry> entries = {
        {section, "WindowState", window.isMaximized() ? std::to_string(kMaximised) : "0"},
        {section, "Left", std::to_string(normal.x())},
        {section, "Top", std::to_string(normal.y())},
        {section, "Width", std::to_string(normal.width())},
        {section, "Height", std::to_string(normal.height())},
    };
    if (keys.splitter != nullptr && !keys.splitter->sizes().isEmpty())
        entries.push_back({section, std::string(keys.splitterKey),
                           std::to_string(keys.splitter->sizes().front())});
    return entries;
}

}  // namespace tessarin
