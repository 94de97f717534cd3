#pragma once

#include <string>

#include "common/clock.h"
#include "common/xml_document.h"
#include "export/export_frame.h"

namespace tessarin {

// The NewsML writer for wire and web customers. ExportNewsML (declared with the other
// writers in export_frame.h) runs the frame around ComposeNewsML.

// The UTC time of day of a local moment, "HHMMSS": the local time of day plus the time zone's
// base bias (UTC = local time + bias, daylight saving left out), wrapped round midnight. The
// date is not moved with it: the envelope's stamp keeps the local date.
std::string UtcTimeText(const LocalDateTime& now, int timeZoneBiasMinutes);

// The whole NewsML document of a story, as the bytes of the file. The declaration follows
// StoriesEncoding; in UTF-8 mode what is escaped is written as UTF-8 and everything else (the
// constant markup, the copyright sign, Language, the subject codes, the identifiers) in
// Windows-1252, so the copyright sign is the single byte 0xA9 in either mode. Lines end in
// CR LF and are indented by tabs. The moment is context.now.
std::string ComposeNewsML(const XmlDocument& story, const ExportContext& context,
                          int timeZoneBiasMinutes);

}  // namespace tessarin
