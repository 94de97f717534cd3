#pragma once

#include "common/xml_document.h"
#include "config/preferences.h"
#include "text/styled_text.h"

namespace tessarin {

// The text boxes of a story file's Story element as a preview shows them: each box that the
// body holds, with its bold, italic, underline, inter and superscript formats and the box's
// font size of the preferences, followed by CR LF; notes and their anchors are left out. The
// boxes' attributes are taken off the document as the story reader does.
StyledText StoryPreviewText(const XmlNode& root, const Preferences& preferences);

}  // namespace tessarin
