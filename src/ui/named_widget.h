#pragma once

#include <QString>

namespace tessarin {

// Gives a new control its control name, which the tests and the window's state find it by.
template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

}  // namespace tessarin
