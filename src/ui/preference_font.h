#pragma once

#include <QFont>
#include <cstddef>

#include "config/preferences.h"

namespace tessarin {

// The font of one entry of the preferences (0 to 6 the text boxes, 8 the teleprompter): its
// name, size in points, bold and italic.
QFont PreferenceFont(const Preferences& preferences, std::size_t entry);

}  // namespace tessarin
