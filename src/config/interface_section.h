#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "common/xml_document.h"

namespace tessarin {

// The Interface section: a caption for each menu entry, label or button, the attributes
// that some keys carry, and five switches of the main window.

struct InterfaceEntry {
    // The configured text, else the code's default for the keys that have one, else empty:
    // the control keeps its design-time caption.
    std::string caption;
    bool Visible = true;  // "false" withdraws the menu entry and its tool-bar button
    std::string Short;
    std::string ToolTipText;
    std::string File;
    std::string Copy;
    std::string Sorted;
    std::string URL;
    std::string Path;
    std::string Link;
    std::string UserDict;
    std::string Title;
    // The menu entry's keyboard shortcuts, as "Ctrl+Shift+S" or several joined by ", ";
    // empty: the desktop's standard ones for the command.
    std::string Shortcut;
    bool Mandatory = false;
    bool Enabled = true;
};

struct InterfaceSettings {
    bool MultipleInstances = true;
    bool MetadataVisible = true;
    bool TextZoomVisible = true;
    bool ImagesVisible = true;
    bool OtherFilesVisible = true;

    std::map<std::string, InterfaceEntry, std::less<>> entries;  // by key; empty when missing

    // The caption of key; empty means the design-time caption.
    const std::string& Caption(std::string_view key) const;
    // The caption of key, else the design-time caption given.
    std::string CaptionOr(std::string_view key, std::string_view design) const;
    // The entry of key; an entry with the defaults when the key was not read.
    const InterfaceEntry& Entry(std::string_view key) const;
};

// Every key of Interface, in reading order.
std::span<const std::string_view> InterfaceKeys();

// The tool-bar buttons (and separators) that go with a menu entry key; empty when none.
std::span<const std::string_view> ToolbarButtonsOf(std::string_view key);

// Reads Interface and applies it to the main window: a caption goes to the menu entry
// "mnu" + key and becomes the tool tip of its tool-bar button; Visible "false" hides the
// entry with its button and separator; MetadataVisible, TextZoomVisible and ImagesVisible
// "false" hide the Informations, Zoom and Images buttons. The Internet entries without a URL
// and the application entry without a Path are withdrawn, the Applications menu with the
// latter. A missing section leaves every
// caption as designed and allows several instances.
void ReadInterface(const XmlNode& section, InterfaceSettings& settings, WindowState& window);

}  // namespace tessarin
