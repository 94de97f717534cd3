#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// The two trees of the main window that list a story's pictures and other files. Each has
// one root, whose text is its caption and the count in brackets, and one child per
// attachment: key number + "I" (pictures) or number + "F" (other files), numbered from 1 in
// the story's order; tag the file's full path; text the file name's short label. A picture's
// node has its IPTC keywords as children.

enum class AttachmentKind { Image, OtherFile };

inline constexpr std::string_view kImagesTree = "treeImages";
inline constexpr std::string_view kOtherFilesTree = "treeOtherFiles";
inline constexpr std::string_view kAttachmentRootKey = "Root";
// The length of a node's label before it is shortened.
inline constexpr std::size_t kAttachmentLabelLength = 40;
// The label beside the picture tree: the selected picture's path and size.
inline constexpr std::string_view kImageInfoLabel = "lblImageInfo";
// The copy-fit line for pictures: the characters that the pictures replace.
inline constexpr std::string_view kImagesCopyfitLabel = "lblImagesCopyfit";

std::string_view AttachmentTreeName(AttachmentKind kind);
std::string AttachmentKey(AttachmentKind kind, int number);

// The position, in the story's list, of the attachment whose node has this key; nothing for
// the root or a key that names no attachment.
std::optional<std::size_t> AttachmentIndex(const EditorSession& session, AttachmentKind kind,
                                           std::string_view key);

// The tree's root, made with its text when the tree is empty.
TreeNode& AttachmentRoot(EditorSession& session, AttachmentKind kind);

// Numbers the story's attachments of this kind from 1 and rebuilds the tree's children and
// root text from them.
void RefreshAttachmentTree(EditorSession& session, AttachmentKind kind);

// Recomputes the image allowance for the form in force and the story's pictures, and shows
// it on the copy-fit line for pictures.
void RecomputeImageAllowance(EditorSession& session);

}  // namespace tessarin
