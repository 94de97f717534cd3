#pragma once

#include <string>

#include "common/xml_document.h"

namespace tessarin {

// The plain text of a story's boxes as the send list's preview shows it. For each of
// Body/TextBox0 to Body/TextBox6 that the story holds, in that order: its note child
// elements are removed from the document with their content; in its serialised form, tabs
// and line ends are removed, then the box's own start and end tags; "<euro/>", "<oe/>" and
// "<OE/>" become their characters and "<p/>" a line break; the tags "<b>", "<i>", "<u>",
// "<sup>", "<inter1>" to "<inter3>", "<note>" and their closing tags are removed; the
// escapes are undone (XmlUnescape) and a line break ends the box. Line breaks are CR LF; the
// text is UTF-8. root is the story's document element. With tabs set, "<tab/>" becomes a tab
// (the receive and tracking previews); otherwise it stays as written.
enum class PlainTextTabs { AsWritten, AsTab };
std::string StoryPlainText(const XmlNode& root, PlainTextTabs tabs = PlainTextTabs::AsWritten);

}  // namespace tessarin
