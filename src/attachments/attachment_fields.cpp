#include "attachments/attachment_fields.h"

namespace tessarin {
namespace {

// The tree's tip as designed, which the configuration's text replaces.
constexpr std::string_view kDesignTreeTip = "Enter key to add / Del key to delete";

template <typename Attachment>
bool Store(EditorSession& session, std::vector<Attachment>& attachments, AttachmentKind kind,
           std::string_view key, std::string Attachment::*field, std::string text) {
    const std::optional<std::size_t> index = AttachmentIndex(session, kind, key);
    if (!index) return false;
    attachments[*index].*field = std::move(text);
    session.storyModified = true;
    return true;
}

}  // namespace

bool TypeImageCaption(EditorSession& session, std::string_view key, std::string text) {
    return Store(session, session.story.images, AttachmentKind::Image, key, &StoryImage::caption,
                 std::move(text));
}

bool TypeImageCredit(EditorSession& session, std::string_view key, std::string text) {
    return Store(session, session.story.images, AttachmentKind::Image, key, &StoryImage::credit,
                 std::move(text));
}

bool TypeOtherFileDescription(EditorSession& session, std::string_view key, std::string text) {
    return Store(session, session.story.files, AttachmentKind::OtherFile, key,
                 &StoryFile::description, std::move(text));
}

std::optional<std::size_t> IptcPictureIndex(const EditorSession& session,
                                            std::string_view selectedKey) {
    const auto index = AttachmentIndex(session, AttachmentKind::Image, selectedKey);
    if (index || session.story.images.empty()) return index;
    if (selectedKey == kAttachmentRootKey) return 0;
    return std::nullopt;
}

std::optional<IptcData> ReadSelectedPictureIptc(EditorSession& session,
                                                std::string_view selectedKey) {
    const std::optional<std::size_t> index = IptcPictureIndex(session, selectedKey);
    if (!index) return std::nullopt;
    IptcData data = ReadIptc(session.story.images[*index].path);
    if (data.shortRead) session.user.Tell("Error reading file ...", MessageIcon::Exclamation);
    return data;
}

std::string AttachmentTreeTip(const EditorSession& session, AttachmentKind kind) {
    const std::string& tip = session.configuration.interface.Caption(
        kind == AttachmentKind::Image ? "ImagesToolTipText" : "OtherFilesToolTipText");
    return tip.empty() ? std::string(kDesignTreeTip) : tip;
}

std::string AttachmentNodeTip(const EditorSession& session, AttachmentKind kind,
                              std::string_view key) {
    const auto index = AttachmentIndex(session, kind, key);
    if (!index) return {};
    if (kind == AttachmentKind::OtherFile) return session.story.files[*index].path;
    return session.preferences.ImagesTooltips ? session.story.images[*index].path : std::string();
}

}  // namespace tessarin
