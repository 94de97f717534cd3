#pragma once

#include "config/preferences.h"

class QString;
class QWidget;

namespace tessarin {

// The main window's panels split by a bar: the Informations view (SizeBarV), the Story view
// (SizeBarVText) and the Images view (SizeBarVImage). Each splitter carries its preferences
// key as its control name. The bar keeps the share of the first panel that the user gave it,
// whatever size the window takes; the shares go to and come from the MainWindow section.

// Gives each splitter of window its stored share (or its designed sizes when none is stored)
// and keeps that share through every resize. barTip is the bars' tool tip.
void KeepPanelProportions(QWidget& window, const MainWindowSection& stored, const QString& barTip);

// The share each splitter holds now, into the section written at exit.
void StorePanelProportions(const QWidget& window, MainWindowSection& section);

}  // namespace tessarin
