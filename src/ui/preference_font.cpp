#include "ui/preference_font.h"

#include <QString>

namespace tessarin {

QFont PreferenceFont(const Preferences& preferences, std::size_t entry) {
    QFont font(QString::fromStdString(preferences.FontName[entry]), preferences.FontSize[entry]);
    font.setBold(preferences.FontBold[entry]);
    font.setItalic(preferences.FontItalic[entry]);
    return font;
}

}  // namespace tessarin
