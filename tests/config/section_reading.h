#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "app/window_state.h"
#include "common/xml_document.h"

// Helpers of the section readers' tests: a section's text parsed, and several values read at
// once turned into one text, so that one comparison with a literal checks them all.
namespace tessarin::testing {

// A section given as XML text, parsed; the test fails when the text does not parse.
inline XmlDocument ParseSection(std::string_view xml) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << xml;
    return document;
}

// Several values read at once, joined with "|", to compare with one expected text.
template <typename Texts>
std::string Joined(const Texts& texts) {
    std::string joined;
    bool first = true;
    for (const auto& text : texts) {
        if (!first) joined += '|';
        joined += text;
        first = false;
    }
    return joined;
}
inline std::string Joined(std::initializer_list<std::string_view> texts) {
    return Joined<std::initializer_list<std::string_view>>(texts);
}

// Several flags at once: "1" for each that is on, "0" for each that is off, in order.
inline std::string Bits(std::initializer_list<bool> flags) {
    std::string bits;
    for (bool flag : flags)
        bits += flag ? '1' : '0';
    return bits;
}

// Which of the named controls are visible, as Bits gives it.
inline std::string Shown(WindowState& window, std::initializer_list<std::string_view> names) {
    std::string bits;
    for (std::string_view name : names)
        bits += window.Control(name).visible ? '1' : '0';
    return bits;
}

}  // namespace tessarin::testing
