#include "ui/window_state_binding.h"

#include <QLabel>
#include <QLineEdit>

#include "metadata/field_labels.h"
#include "ui/tool_tip_text.h"

namespace tessarin {

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToUtf8(const QString& text) {
    return text.toStdString();
}

void ShowControlState(QWidget& widget, const WindowState& window, std::string_view name,
                      bool available) {
    const ControlState* control = window.FindControl(name);
    if (control == nullptr) {
        if (!available) widget.setVisible(false);
        return;
    }
    widget.setVisible(available && control->visible);
    widget.setEnabled(control->enabled);
    widget.setToolTip(ToolTipText(control->toolTip));
    if (control->width > 0) widget.setFixedWidth(control->width);
}

void ShowLabelCaption(QLabel& label, const WindowState& window, std::string_view name) {
    label.setText(ToQString(LabelCaption(window, name)));
    ShowControlState(label, window, name);
}

void ShowFieldText(QLineEdit& field, const std::string& text) {
    const QString shown = ToQString(text);
    if (field.text() != shown) field.setText(shown);
}

}  // namespace tessarin
