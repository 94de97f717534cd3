#pragma once

#include "app/window_state.h"

namespace tessarin {

// Colours as the preferences keep them: 0x00BBGGRR, or a system colour, which is the index
// of the desktop's colour role with the high bit set.

constexpr OleColour kSystemColourBit = 0x80000000u;

constexpr OleColour SystemColour(int role) {
    return kSystemColourBit | static_cast<OleColour>(role);
}

constexpr bool IsSystemColour(OleColour colour) {
    return (colour & kSystemColourBit) != 0;
}

// The system colour roles that the preferences use as defaults.
constexpr OleColour kWindowBackground = SystemColour(5);
constexpr OleColour kSelectionBackground = SystemColour(13);
constexpr OleColour kButtonFace = SystemColour(15);
constexpr OleColour kButtonText = SystemColour(18);

// The sixteen colours of the classic text-mode palette, numbered 0 to 15: black, blue, green,
// cyan, red, magenta, yellow, white, then grey and the bright forms of blue to white. Only
// the number's lowest four bits count.
constexpr OleColour ClassicColour(int number) {
    constexpr OleColour kPalette[16] = {
        Rgb(0, 0, 0),       Rgb(0, 0, 128),   Rgb(0, 128, 0),   Rgb(0, 128, 128),
        Rgb(128, 0, 0),     Rgb(128, 0, 128), Rgb(128, 128, 0), Rgb(192, 192, 192),
        Rgb(128, 128, 128), Rgb(0, 0, 255),   Rgb(0, 255, 0),   Rgb(0, 255, 255),
        Rgb(255, 0, 0),     Rgb(255, 0, 255), Rgb(255, 255, 0), Rgb(255, 255, 255)};
    return kPalette[number & 0x0F];
}

// A colour's red, green and blue values, 0 to 255 each, as the rich-text colour table
// writes them. A system colour is not looked up: its low three bytes are taken as they are.
struct ColourComponents {
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const ColourComponents&) const = default;
};

constexpr ColourComponents SplitColour(OleColour colour) {
    return {static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
            static_cast<int>((colour >> 16) & 0xFF)};
}

}  // namespace tessarin
