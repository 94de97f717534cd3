#include "ui/tool_tip_text.h"

#include <string>

#include "config/messages_section.h"

namespace tessarin {

QString ToolTipText(std::string_view configured) {
    return QString::fromStdString(WithLineBreaks(configured));
}

}  // namespace tessarin
