#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "attachments/iptc_reader.h"
#include "config/interface_section.h"

namespace tessarin {

// How the picture's metadata window shows the IPTC data.

// A value on one line: CR LF, CR, LF and tab each become "/". With macintoshAccents, the
// accented letters of a caption typed on a Macintosh, which arrive as other Windows-1252
// characters, are put back.
std::string DisplayText(std::string_view value, bool macintoshAccents);

// The dataset's label: the caption that the configuration gives its key, else the default.
std::string IptcLabel(const InterfaceSettings& interface, const IptcDataset& dataset);

struct IptcDisplayLine {
    std::string label;
    std::string value;
    friend bool operator==(const IptcDisplayLine&, const IptcDisplayLine&) = default;
};

// One line for each named dataset with a value, in the table's order, the value through
// DisplayText. The Macintosh accents are restored only in texts of the 8-bit code page: a
// picture that declares its texts UTF-8 has its accents already.
std::vector<IptcDisplayLine> IptcDisplayLines(const IptcData& data,
                                              const InterfaceSettings& interface,
                                              bool macintoshAccents);

// One line "Segment <number>: <text>" for each dataset the table does not name, in file
// order, the text through DisplayText as above.
std::vector<std::string> IptcSegmentLines(const IptcData& data, bool macintoshAccents);

}  // namespace tessarin
