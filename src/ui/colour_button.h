#pragma once

#include <QPushButton>

#include "app/window_state.h"

namespace tessarin {

// A button that shows one of the preferences' colours as its face and, when pressed, offers
// the colour dialog; a colour chosen there becomes the button's and is announced.
class ColourButton : public QPushButton {
    Q_OBJECT
  public:
    ColourButton(const QString& objectName, OleColour colour, QWidget* parent = nullptr);

    OleColour Colour() const { return colour_; }
    void SetColour(OleColour colour);

  signals:
    void colourChosen(OleColour colour);

  private:
    void Choose();

    OleColour colour_;
};

}  // namespace tessarin
