#include "attachments/story_attachment_trees.h"

#include <vector>

#include "attachments/attachments.h"

namespace tessarin {
namespace {

// The tree has its root, and under it the files of the story's attachments, in order.
bool TreeShowsStory(const EditorSession& session, AttachmentKind kind,
                    const std::vector<std::string>& paths) {
    const TreeModel* tree = session.window.FindTree(AttachmentTreeName(kind));
    if (!tree || tree->Empty()) return false;
    const std::list<TreeNode>& nodes = tree->Roots().front().children;
    if (nodes.size() != paths.size()) return false;
    auto path = paths.begin();
    for (const TreeNode& node : nodes) {
        if (node.tag != *path++) return false;
    }
    return true;
}

template <typename Attachment>
std::vector<std::string> PathsOf(const std::vector<Attachment>& attachments) {
    std::vector<std::string> paths;
    for (const Attachment& attachment : attachments)
        paths.push_back(attachment.path);
    return paths;
}

}  // namespace

void ShowStoryAttachmentTrees(EditorSession& session) {
    if (TreeShowsStory(session, AttachmentKind::Image, PathsOf(session.story.images)) &&
        TreeShowsStory(session, AttachmentKind::OtherFile, PathsOf(session.story.files))) {
        return;
    }
    ShowStoryAttachments(session);
}

}  // namespace tessarin
