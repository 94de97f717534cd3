#pragma once

#include <filesystem>

#include "session/editor_session.h"

namespace tessarin {

// The entry of a picture as it is linked. When the preferences take anything from IPTC data,
// or the configuration makes the caption, credit or keywords mandatory, the picture's IPTC
// data is read and a missing mandatory value is warned about (the picture is linked all the
// same). The caption, the credit (a byline, when taken, replaces it) and the IPTC keywords
// (one entry for all of them when they are collapsed) then come from it as the preferences
// say. Without a credit, the user's name is the credit when the configuration gives
// AuthorByDefault. The entry's number is left for the tree to set.
StoryImage NewImageEntry(EditorSession& session, const std::filesystem::path& picture);

}  // namespace tessarin
