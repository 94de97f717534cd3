#pragma once

#include <cstdint>
#include <filesystem>

#include "attachments/attachment_trees.h"
#include "session/editor_session.h"

namespace tessarin {

// The checks that a file goes through before it is linked to the story, in their order:
// an other file must not be a JPEG picture; the file must exist; a picture outside the
// personal pictures directory is warned about; its folder becomes the start folder of the
// next choice (DirImages); the same file must not be linked twice. Each refusal tells the
// user why and returns false.
bool AcceptIncomingFile(EditorSession& session, AttachmentKind kind,
                        const std::filesystem::path& file);

// The size limits of pictures (MinSizeImage, MaxSizeImage, in kilobytes; 0 for none): a
// picture outside them is kept only when the user answers Yes.
bool AcceptImageSize(EditorSession& session, const std::filesystem::path& picture,
                     std::uintmax_t length);

}  // namespace tessarin
