#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "attachments/attachment_trees.h"
#include "attachments/iptc_reader.h"
#include "session/editor_session.h"

namespace tessarin {

// The fields beside the attachment trees, which edit the attachment whose node is selected:
// a picture's caption (txtImageCaption) and credit (txtImageCredit), another file's
// description (txtOtherFileDescription); and what the trees tell the pointer and the IPTC
// window about the selected picture.

// The writer typed in a field: the attachment of the node of key keeps the text and the story
// is modified. False, and nothing kept, when key names no attachment of that kind (the root).
bool TypeImageCaption(EditorSession& session, std::string_view key, std::string text);
bool TypeImageCredit(EditorSession& session, std::string_view key, std::string text);
bool TypeOtherFileDescription(EditorSession& session, std::string_view key, std::string text);

// The picture that the IPTC window shows for the selected node: that picture, the first one
// when the root is selected; nothing when there is none.
std::optional<std::size_t> IptcPictureIndex(const EditorSession& session,
                                            std::string_view selectedKey);

// The IPTC data of that picture. A file that gave fewer bytes than its size is told about
// ("Error reading file ..."), and what was read is shown.
std::optional<IptcData> ReadSelectedPictureIptc(EditorSession& session,
                                                std::string_view selectedKey);

// The tool tip of a tree: ImagesToolTipText or OtherFilesToolTipText, else the tip it was
// designed with, "Enter key to add / Del key to delete".
std::string AttachmentTreeTip(const EditorSession& session, AttachmentKind kind);

// The tool tip of the node of key: the attachment's full path, so that the writer sees where
// the file comes from; for a picture only with the preference ImagesTooltips on. Empty for
// the root.
std::string AttachmentNodeTip(const EditorSession& session, AttachmentKind kind,
                              std::string_view key);

}  // namespace tessarin
