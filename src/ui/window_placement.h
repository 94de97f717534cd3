#pragma once

#include <QSize>
#include <string_view>
#include <vector>

#include "config/profile_file.h"

class QSplitter;
class QWidget;

namespace tessarin {

// Where a window stands, as its section of the preferences keeps it: WindowState (0 normal,
// 2 maximised), Left, Top, Width and Height in pixels, and, for a window split in two, the
// size of the first part under the splitter's key (SizeBarV, SizeBarH).
struct WindowPlacementKeys {
    std::string_view section;
    QSize designSize;
    QSplitter* splitter = nullptr;
    std::string_view splitterKey = {};
};

// Puts the window where the preferences last left it; without stored values it keeps the
// design size and the desktop's placement.
void RestoreWindowPlacement(QWidget& window, const ProfileContents& stored,
                            const WindowPlacementKeys& keys);

// The entries that keep where the window stands now, its normal geometry when maximised.
std::vector<ProfileEntry> WindowPlacementEntries(const QWidget& window,
                                                 const WindowPlacementKeys& keys);

}  // namespace tessarin
