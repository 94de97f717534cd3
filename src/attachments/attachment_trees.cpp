#include "attachments/attachment_trees.h"

#include "attachments/image_allowance.h"
#include "attachments/short_label.h"

namespace tessarin {
namespace {

constexpr std::string_view kOtherFilesCaption = "Other files";

std::string RootCaption(const EditorSession& session, AttachmentKind kind) {
    if (kind == AttachmentKind::Image) return session.Message("ImagesLabel");
    return session.configuration.interface.CaptionOr("OtherFiles", kOtherFilesCaption);
}

std::size_t AttachmentCount(const EditorSession& session, AttachmentKind kind) {
    return kind == AttachmentKind::Image ? session.story.images.size() : session.story.files.size();
}

TreeNode AttachmentNode(AttachmentKind kind, int number, const std::string& path) {
    TreeNode node;
    node.key = AttachmentKey(kind, number);
    node.tag = path;
    node.text = ShortLabel(std::filesystem::path(path).filename().string(), kAttachmentLabelLength);
    return node;
}

std::string FormNameInForce(const EditorSession& session) {
    const int form = session.panel.formInForce;
    const auto& forms = session.configuration.forms;
    return form >= 0 && static_cast<std::size_t>(form) < forms.size() ? forms[form].name
                                                                      : std::string();
}

}  // namespace

std::string_view AttachmentTreeName(AttachmentKind kind) {
    return kind == AttachmentKind::Image ? kImagesTree : kOtherFilesTree;
}

std::string AttachmentKey(AttachmentKind kind, int number) {
    return std::to_string(number) + (kind == AttachmentKind::Image ? "I" : "F");
}

std::optional<std::size_t> AttachmentIndex(const EditorSession& session, AttachmentKind kind,
                                           std::string_view key) {
    for (std::size_t index = 0; index < AttachmentCount(session, kind); ++index) {
        if (AttachmentKey(kind, static_cast<int>(index) + 1) == key) return index;
    }
    return std::nullopt;
}

TreeNode& AttachmentRoot(EditorSession& session, AttachmentKind kind) {
    TreeModel& tree = session.window.Tree(AttachmentTreeName(kind));
    if (tree.Empty()) {
        TreeNode root;
        root.key = std::string(kAttachmentRootKey);
        root.text = RootCaption(session, kind) + " [0]";
        tree.Add(nullptr, std::move(root));
    }
    return tree.Roots().front();
}

void RefreshAttachmentTree(EditorSession& session, AttachmentKind kind) {
    TreeNode& root = AttachmentRoot(session, kind);
    root.children.clear();
    int number = 0;
    if (kind == AttachmentKind::Image) {
        for (StoryImage& image : session.story.images) {
            image.number = ++number;
            TreeNode& node = root.children.emplace_back(AttachmentNode(kind, number, image.path));
            for (const std::string& keyword : image.iptcKeywords) {
                node.children.emplace_back().text = keyword;
            }
        }
    } else {
        for (StoryFile& file : session.story.files) {
            file.number = ++number;
            root.children.push_back(AttachmentNode(kind, number, file.path));
        }
    }
    root.text = RootCaption(session, kind) + " [" + std::to_string(number) + "]";
}

void RecomputeImageAllowance(EditorSession& session) {
    session.panel.imageAllowance =
        ComputeImageAllowance(session.configuration, FormNameInForce(session),
                              static_cast<int>(session.story.images.size()));
    session.window.Control(kImagesCopyfitLabel).caption =
        session.Message("ImagesCopyfit") + " = " + std::to_string(session.panel.imageAllowance);
}

}  // namespace tessarin
