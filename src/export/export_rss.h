#pragma once

#include <string>

#include "common/xml_document.h"
#include "export/export_frame.h"

namespace tessarin {

// An RSS 2.0 feed of one story, as Windows-1252 bytes under an ISO-8859-1 declaration. The
// channel comes from the RSS section of the configuration and, when the story has
// Metadata, from its Publication and PublicationDate; the head text boxes 0 to 5 make the
// first item's title, and each intertitle of box 6 starts a new item. Story text goes out
// in its serialised form with no escaping added; "<b>", "<i>", "<u>" and "<p/>" in item text
// are shown as text, and a paragraph that runs into a URL gets a link element.
std::string ComposeRss(const XmlDocument& story, const ExportContext& context);

}  // namespace tessarin
