#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "attachments/attachment_trees.h"
#include "attachments/iptc_reader.h"
#include "session/editor_session.h"

namespace tessarin {

// The commands that link pictures and other files to the open story, replace and remove
// them. The story's lists (story.images, story.files) and the trees treeImages and
// treeOtherFiles always agree; a node is named by its key ("2I", "1F", or the root's). Every
// refusal tells the user why and leaves the story and the trees as they were.

// Links a picture: the given file, or the one the user chooses when path is empty. The
// picture goes through the checks of AcceptIncomingFile, the size questions and the IPTC fill
// of NewImageEntry; the image allowance is then recomputed. Refused when the form in force
// takes no pictures. Returns the new node's key, which is selected; nothing when refused.
std::optional<std::string> AddImage(EditorSession& session, const std::filesystem::path& path = {});

// Replaces the file of the picture whose node is selected, with the same checks; its caption,
// credit and keywords come from the new file as for a new picture. On the root, the tree is
// expanded and nothing else happens. True when the file was replaced.
bool ModifyImage(EditorSession& session, std::string_view selectedKey,
                 const std::filesystem::path& path = {});

// Links another file: as AddImage without size limits or IPTC data; a JPEG picture is refused.
std::optional<std::string> AddOtherFile(EditorSession& session,
                                        const std::filesystem::path& path = {});
bool ModifyOtherFile(EditorSession& session, std::string_view selectedKey,
                     const std::filesystem::path& path = {});

// Removes the selected attachment after a Yes to ImageRemove (OtherFileRemove) and its label;
// later attachments move down and are numbered again. Nothing happens on the root. Returns
// the key of the node to select next (the nearest one, else the root); nothing when nothing
// was removed.
std::optional<std::string> RemoveImage(EditorSession& session, std::string_view selectedKey);
std::optional<std::string> RemoveOtherFile(EditorSession& session, std::string_view selectedKey);

// Empties both trees down to their roots and the story's lists: the state of a new story.
void ClearAttachments(EditorSession& session);

// Builds both trees from the story's lists, as after reading a story, and recomputes the
// image allowance.
void ShowStoryAttachments(EditorSession& session);

// Shows the selected picture's path and size beside the tree (the path alone when its file
// has vanished).
void ShowImage(EditorSession& session, std::string_view selectedKey);

// The IPTC window's copy: the credit and caption of the picture's IPTC data go to the selected
// picture, or to the first one when the root is selected. False when there is no picture.
bool CopyIptcToImage(EditorSession& session, std::string_view selectedKey, const IptcData& data);

}  // namespace tessarin
