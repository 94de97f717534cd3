#pragma once

#include <string>

#include "common/xml_document.h"

namespace tessarin {

// Why a transformation failed: the processor's words, and where in the style sheet when it
// tells (line 0 otherwise).
struct XslTransformError {
    std::string reason;
    int line = 0;
    int linePosition = 0;
    std::string sourceText;
};

struct XslTransformResult {
    bool succeeded = false;
    std::string output;  // the result as the style sheet's xsl:output serialises it
    XslTransformError error;
};

// Applies an XSLT 1.0 style sheet to a story, both loaded. The style sheet may read files
// (xsl:import, document()) but neither write nor reach the network.
XslTransformResult TransformStory(const XmlDocument& styleSheet, const XmlDocument& story);

// The extension of the file a style sheet makes: "htm", or what follows "extension=" in a
// comment at the top level of the style sheet's document, trimmed; the last such comment
// wins.
std::string StyleSheetExtension(const XmlDocument& styleSheet);

}  // namespace tessarin
