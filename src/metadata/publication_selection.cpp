#include "metadata/publication_selection.h"

#include <array>
#include <vector>

#include "config/text_trim.h"
#include "metadata/metadata_changed.h"
#include "metadata/tree_search.h"

namespace tessarin {
namespace {

constexpr std::string_view kLocalClassificationTag = "CL";

// The classification fields of the story, so that a click can tell whether it changed any.
std::array<std::string, 8> ClassificationValues(const StoryRecord& story) {
    return {story.publication,       story.classification, story.sectionGeneral,
            story.subSectionGeneral, story.sectionLocal,   story.subSectionLocal,
            story.codeLocal1,        story.codeLocal2};
}

// The node clicked and the nodes above it, read from the path that leads to it.
class ClickedChain {
  public:
    explicit ClickedChain(const std::vector<TreeNode*>& path) : path_(path) {}

    const TreeNode& Node() const { return *path_.back(); }

    // The text of the node `generations` levels above the clicked one; empty above the root.
    std::string TextAbove(std::size_t generations) const {
        return generations < path_.size() ? path_[path_.size() - 1 - generations]->text
                                          : std::string();
    }

    bool LocalAbove(std::size_t generations) const {
        return generations < path_.size() &&
               path_[path_.size() - 1 - generations]->tag == kLocalClassificationTag;
    }

  private:
    const std::vector<TreeNode*>& path_;
};

void ClearSections(StoryRecord& story) {
    story.sectionGeneral.clear();
    story.subSectionGeneral.clear();
    story.sectionLocal.clear();
    story.subSectionLocal.clear();
    story.codeLocal1.clear();
    story.codeLocal2.clear();
}

void SetGeneralOrLocal(EditorSession& session, bool local) {
    session.configuration.publications.classifiedGeneral = !local;
    session.story.usesLocalSections = local;
}

void FileUnderSubSection(EditorSession& session, const ClickedChain& chain) {
    StoryRecord& story = session.story;
    const bool local = chain.LocalAbove(2);
    story.publication = chain.TextAbove(3);
    story.classification = chain.TextAbove(2);
    ClearSections(story);
    (local ? story.sectionLocal : story.sectionGeneral) = chain.TextAbove(1);
    (local ? story.subSectionLocal : story.subSectionGeneral) = chain.Node().text;
    if (local) {
        const std::string code = chain.Node().tag.substr(1);
        const std::size_t slash = code.find('/');
        story.codeLocal1 = code.substr(0, slash);
        if (slash != std::string::npos) story.codeLocal2 = code.substr(slash + 1);
    }
    SetGeneralOrLocal(session, local);
}

void FileUnderSection(EditorSession& session, const ClickedChain& chain) {
    StoryRecord& story = session.story;
    const bool local = chain.LocalAbove(1);
    story.publication = chain.TextAbove(2);
    story.classification = chain.TextAbove(1);
    ClearSections(story);
    (local ? story.sectionLocal : story.sectionGeneral) = chain.Node().text;
    SetGeneralOrLocal(session, local);
}

void FileUnderClassification(EditorSession& session, const ClickedChain& chain) {
    session.story.publication = chain.TextAbove(1);
    session.story.classification = chain.Node().text;
    ClearSections(session.story);
    SetGeneralOrLocal(session, chain.LocalAbove(0));
}

void FileUnderPublication(EditorSession& session, const ClickedChain& chain) {
    session.story.publication = chain.Node().text;
    ClearSections(session.story);
}

}  // namespace

bool ClickPublicationNode(EditorSession& session, TreeHighlights& highlights,
                          std::string_view key) {
    TreeModel& tree = session.window.Tree(kPublicationsTree);
    highlights.Clear(kPublicationsTree, tree);
    const std::vector<TreeNode*> path = PathToKey(tree, key);
    if (path.empty() || path.back()->tag.empty()) return false;
    const ClickedChain chain(path);
    const auto before = ClassificationValues(session.story);
    switch (chain.Node().tag.front()) {
        case 'T':
            FileUnderSubSection(session, chain);
            break;
        case 'S':
            FileUnderSection(session, chain);
            break;
        case 'C':
            FileUnderClassification(session, chain);
            break;
        case 'P':
            FileUnderPublication(session, chain);
            break;
        default:
            return false;
    }
    for (TreeNode* node : path)
        highlights.Highlight(kPublicationsTree, *node);
    if (ClassificationValues(session.story) != before) MetadataValueChanged(session);
    return true;
}

std::string PublicationNodeTip(const TreeNode& node) {
    if (node.tag.starts_with('T')) return node.tag.substr(1) + " - " + node.text;
    return node.text;
}

bool PointPublicationNode(EditorSession& session, std::string_view key) {
    if (!session.preferences.ClassificationTooltips) return false;
    const TreeNode* node = session.window.Tree(kPublicationsTree).Find(key);
    if (!node) return false;
    return ShowTreeTip(session.window, kPublicationsTree, PublicationNodeTip(*node));
}

std::optional<std::string> SearchPublications(WindowState& window, TreeHighlights& highlights,
                                              std::string_view text, PublicationSearchMode mode) {
    const std::string wanted = UpperCaseText(TrimWhitespace(text));
    if (wanted.empty()) return std::nullopt;
    TreeModel& tree = window.Tree(kPublicationsTree);
    highlights.Clear(kPublicationsTree, tree);
    VisitNodes(tree, [](TreeNode& node, const std::vector<TreeNode*>&) { node.expanded = false; });
    const std::string secondCode = "/" + wanted;
    return HighlightMatches(tree, kPublicationsTree, highlights, [&](const TreeNode& node) {
        switch (mode) {
            case PublicationSearchMode::Name:
                return UpperCaseText(node.text).find(wanted) != std::string::npos;
            case PublicationSearchMode::FirstCode:
                return UpperCaseText(node.tag).find(wanted) != std::string::npos;
            case PublicationSearchMode::SecondCode:
                return UpperCaseText(node.tag).find(secondCode) != std::string::npos;
        }
        return false;
    });
}

std::string PublicationsCountText(const WindowState& window) {
    const TreeModel* tree = window.FindTree(kPublicationsTree);
    return ItemsCountText(tree ? tree->Count() : 0);
}

}  // namespace tessarin
