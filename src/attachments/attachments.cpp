#include "attachments/attachments.h"

#include <system_error>

#include "attachments/file_size_text.h"
#include "attachments/image_iptc_fill.h"
#include "attachments/incoming_file_checks.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOtherFilesFilter = "*.*|*.*";

std::size_t AttachmentCount(const EditorSession& session, AttachmentKind kind) {
    return kind == AttachmentKind::Image ? session.story.images.size() : session.story.files.size();
}

std::optional<fs::path> ChooseFile(EditorSession& session, AttachmentKind kind,
                                   const fs::path& given) {
    if (!given.empty()) return given;
    const bool image = kind == AttachmentKind::Image;
    const std::string title = session.Message(image ? "SelectImage" : "SelectOtherFile");
    const std::string filter =
        image ? session.Message("ImageLabel") + " JPEG (*.jpg,jpeg,zip)|*.jpg;*.jpeg;*.zip"
              : std::string(kOtherFilesFilter);
    auto chosen = session.user.ChooseFileToOpen(title, filter, session.lastImageDirectory);
    if (!chosen || chosen->empty()) return std::nullopt;
    return chosen;
}

// The file to link once chosen and past every check; nothing when it was refused.
std::optional<fs::path> AcceptedFile(EditorSession& session, AttachmentKind kind,
                                     const fs::path& given) {
    auto file = ChooseFile(session, kind, given);
    if (!file || !AcceptIncomingFile(session, kind, *file)) return std::nullopt;
    if (kind == AttachmentKind::Image) {
        std::error_code error;
        const std::uintmax_t length = fs::file_size(*file, error);
        if (!AcceptImageSize(session, *file, error ? 0 : length)) return std::nullopt;
    }
    return file;
}

// The node that stands for the new attachment while its file is chosen and checked.
void AddPendingNode(EditorSession& session, AttachmentKind kind) {
    TreeNode node;
    node.key = AttachmentKey(kind, static_cast<int>(AttachmentCount(session, kind)) + 1);
    node.text = session.Message(kind == AttachmentKind::Image ? "NewImage" : "NewOtherFile");
    AttachmentRoot(session, kind).children.push_back(std::move(node));
}

void DropPendingNode(EditorSession& session, AttachmentKind kind) {
    AttachmentRoot(session, kind).children.pop_back();
}

// Shows the story's attachments of this kind after a change, and the picture at key.
void ShowChange(EditorSession& session, AttachmentKind kind, const std::string& key) {
    RefreshAttachmentTree(session, kind);
    session.storyModified = true;
    if (kind != AttachmentKind::Image) return;
    ShowImage(session, key);
    RecomputeImageAllowance(session);
}

std::optional<std::string> AddAttachment(EditorSession& session, AttachmentKind kind,
                                         const fs::path& path) {
    session.window.ClearStatus();
    AddPendingNode(session, kind);
    const std::optional<fs::path> file = AcceptedFile(session, kind, path);
    if (!file) {
        DropPendingNode(session, kind);
        return std::nullopt;
    }
    if (kind == AttachmentKind::Image) {
        session.story.images.push_back(NewImageEntry(session, *file));
    } else {
        session.story.files.push_back(StoryFile{0, file->string(), {}});
    }
    const std::string key = AttachmentKey(kind, static_cast<int>(AttachmentCount(session, kind)));
    ShowChange(session, kind, key);
    return key;
}

bool ModifyAttachment(EditorSession& session, AttachmentKind kind, std::string_view selectedKey,
                      const fs::path& path) {
    if (selectedKey == kAttachmentRootKey) {
        AttachmentRoot(session, kind).expanded = true;
        return false;
    }
    const std::optional<std::size_t> index = AttachmentIndex(session, kind, selectedKey);
    if (!index) return false;
    session.window.ClearStatus();
    const std::optional<fs::path> file = AcceptedFile(session, kind, path);
    if (!file) return false;
    if (kind == AttachmentKind::Image) {
        session.story.images[*index] = NewImageEntry(session, *file);
    } else {
        session.story.files[*index] = StoryFile{0, file->string(), {}};
    }
    ShowChange(session, kind, std::string(selectedKey));
    return true;
}

std::string RemovalQuestion(const EditorSession& session, AttachmentKind kind) {
    const bool image = kind == AttachmentKind::Image;
    const std::string& caption =
        session.configuration.interface.Caption(image ? "ImageRemove" : "OtherFileRemove");
    if (!caption.empty()) return caption;
    return image ? "Remove image" : "Remove file";
}

std::optional<std::string> RemoveAttachment(EditorSession& session, AttachmentKind kind,
                                            std::string_view selectedKey) {
    const std::optional<std::size_t> index = AttachmentIndex(session, kind, selectedKey);
    if (!index) return std::nullopt;
    const TreeNode* node = session.window.Tree(AttachmentTreeName(kind)).Find(selectedKey);
    const std::string label = node ? node->text : std::string();
    const Answer answer = session.user.Ask(RemovalQuestion(session, kind) + " " + label, false,
                                           MessageIcon::Question);
    if (answer != Answer::Yes) return std::nullopt;

    const auto offset = static_cast<std::ptrdiff_t>(*index);
    if (kind == AttachmentKind::Image) {
        session.story.images.erase(session.story.images.begin() + offset);
        session.window.Control(kImageInfoLabel).caption.clear();
    } else {
        session.story.files.erase(session.story.files.begin() + offset);
    }
    RefreshAttachmentTree(session, kind);
    if (kind == AttachmentKind::Image) RecomputeImageAllowance(session);
    session.storyModified = true;

    const std::size_t count = AttachmentCount(session, kind);
    if (*index < count) return AttachmentKey(kind, static_cast<int>(*index) + 1);
    if (count > 0) return AttachmentKey(kind, static_cast<int>(count));
    return std::string(kAttachmentRootKey);
}

}  // namespace

std::optional<std::string> AddImage(EditorSession& session, const fs::path& path) {
    if (session.panel.maxImages == 0) {
        session.user.Tell(session.Message("ImageNotAllowed"), MessageIcon::Exclamation);
        return std::nullopt;
    }
    return AddAttachment(session, AttachmentKind::Image, path);
}

bool ModifyImage(EditorSession& session, std::string_view selectedKey, const fs::path& path) {
    return ModifyAttachment(session, AttachmentKind::Image, selectedKey, path);
}

std::optional<std::string> AddOtherFile(EditorSession& session, const fs::path& path) {
    return AddAttachment(session, AttachmentKind::OtherFile, path);
}

bool ModifyOtherFile(EditorSession& session, std::string_view selectedKey, const fs::path& path) {
    return ModifyAttachment(session, AttachmentKind::OtherFile, selectedKey, path);
}

std::optional<std::string> RemoveImage(EditorSession& session, std::string_view selectedKey) {
    return RemoveAttachment(session, AttachmentKind::Image, selectedKey);
}

std::optional<std::string> RemoveOtherFile(EditorSession& session, std::string_view selectedKey) {
    return RemoveAttachment(session, AttachmentKind::OtherFile, selectedKey);
}

void ClearAttachments(EditorSession& session) {
    session.story.images.clear();
    session.story.files.clear();
    session.window.Control(kImageInfoLabel).caption.clear();
    ShowStoryAttachments(session);
}

void ShowStoryAttachments(EditorSession& session) {
    RefreshAttachmentTree(session, AttachmentKind::Image);
    RefreshAttachmentTree(session, AttachmentKind::OtherFile);
    RecomputeImageAllowance(session);
}

void ShowImage(EditorSession& session, std::string_view selectedKey) {
    const auto index = AttachmentIndex(session, AttachmentKind::Image, selectedKey);
    if (!index) return;
    const std::string& path = session.story.images[*index].path;
    std::string info = path;
    std::error_code error;
    const std::uintmax_t length = fs::file_size(path, error);
    if (!error) info += "   " + session.Message("ImageSizeLabel") + ": " + FormatFileSize(length);
    session.window.Control(kImageInfoLabel).caption = std::move(info);
}

bool CopyIptcToImage(EditorSession& session, std::string_view selectedKey, const IptcData& data) {
    auto index = AttachmentIndex(session, AttachmentKind::Image, selectedKey);
    if (!index && selectedKey == kAttachmentRootKey && !session.story.images.empty()) index = 0;
    if (!index) return false;
    StoryImage& image = session.story.images[*index];
    image.credit = data.Value(kIptcCredit);
    image.caption = data.Value(kIptcCaptionAbstract);
    session.storyModified = true;
    return true;
}

}  // namespace tessarin
