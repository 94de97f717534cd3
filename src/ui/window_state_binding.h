#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "app/window_state.h"

class QLabel;
class QLineEdit;
class QWidget;

namespace tessarin {

// How the metadata and attachment views put the window state's controls on screen.

QString ToQString(std::string_view text);
std::string ToUtf8(const QString& text);

// Shows a control as the window state holds it: visible, enabled, its tool tip and its width.
// A control the state does not know stays as designed. A control that is not available (its
// part of the window is switched off) is hidden whatever its state says.
void ShowControlState(QWidget& widget, const WindowState& window, std::string_view name,
                      bool available = true);

// A label's caption: the configured one, else the one it was designed with.
void ShowLabelCaption(QLabel& label, const WindowState& window, std::string_view name);

// Puts text into a field unless it already holds it, so that the cursor of a field being
// typed in stays where it is.
void ShowFieldText(QLineEdit& field, const std::string& text);

}  // namespace tessarin
