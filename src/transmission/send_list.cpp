#include "transmission/send_list.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "common/folder_listing.h"
#include "common/xml_document.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

void ApplyControlMarkers(const fs::path& upload, WorkflowWindow& window) {
    std::vector<std::string> markers = NamesWithExtension(upload, ".nc");
    if (NamesWithExtension(upload, ".xml").empty()) {
        for (const std::string& marker : markers) {
            std::error_code ignored;
            fs::remove(upload / marker, ignored);
        }
        markers.clear();
    }
    ControlState& control = window.state.Control("optControl0");
    ControlState& noControl = window.state.Control("optControl1");
    if (markers.empty()) {
        control.enabled = true;
        return;
    }
    control.enabled = false;
    control.checked = false;
    noControl.checked = true;
}

// The names of a story's images or other files, as the list shows them.
std::vector<std::string> ListedNames(const XmlNode& root, std::string_view path) {
    std::vector<std::string> names;
    for (const XmlNode& file : root.SelectNodes(path)) {
        std::string name = ListedFileName(file.Attribute("href"));
        if (!name.empty()) names.push_back(std::move(name));
    }
    return names;
}

TreeNode Node(std::string key, std::string text, std::string tag) {
    TreeNode node;
    node.key = std::move(key);
    node.text = std::move(text);
    node.tag = std::move(tag);
    return node;
}

void AddStoryNodes(TreeModel& tree, const ListedStory& story, std::size_t number) {
    const std::string key = "A" + std::to_string(number);
    TreeNode& node = tree.Add(nullptr, Node(key, story.name, "S"));
    node.expanded = true;
    const auto addChildren = [&](const std::vector<std::string>& names, const char* tag) {
        for (std::size_t index = 0; index < names.size(); ++index)
            tree.Add(&node, Node(key + tag + std::to_string(index + 1), names[index], tag));
    };
    addChildren(story.images, "I");
    addChildren(story.files, "F");
}

std::string CountersCaption(const EditorSession& session, const WorkflowWindow& window) {
    std::string caption = session.Message("StoriesLabel") + ":" +
                          std::to_string(window.stories.size()) + " / " +
                          session.Message("ImagesLabel") + ":" + std::to_string(window.imageCount);
    const InterfaceSettings& interface = session.configuration.interface;
    if (interface.OtherFilesVisible) {
        caption += " / " + interface.CaptionOr("OtherFiles", "Other files") + ":" +
                   std::to_string(window.otherFileCount);
    }
    return caption;
}

void ApplyListState(const EditorSession& session, WorkflowWindow& window) {
    const bool empty = window.stories.empty();
    window.state.Control("FrameStories").caption = CountersCaption(session, window);
    window.state.Control("cmdUpload").enabled = !empty;
    window.state.Control("cmdRemoveStory").enabled = !empty;
    window.state.Control("FrameHelp").visible = empty && session.preferences.SendHelpBalloons;
}

}  // namespace

std::string NoControlMarkerName(std::string_view storyName) {
    const std::size_t dot = storyName.rfind('.');
    if (dot == std::string_view::npos) return std::string(storyName) + ".nc";
    return std::string(storyName.substr(0, dot + 1)) + "nc";
}

std::string ListedFileName(std::string_view href) {
    constexpr std::string_view kScheme = "file:///";
    if (href.starts_with(kScheme)) href.remove_prefix(kScheme.size());
    std::string name;
    for (std::size_t position = 0; position < href.size(); ++position) {
        if (href.substr(position).starts_with("%20")) {
            name += ' ';
            position += 2;
        } else {
            name += href[position];
        }
    }
    return name;
}

void SetTreeUpload(EditorSession& session, WorkflowWindow& window) {
    const fs::path& upload = session.paths.uploadDir;
    TreeModel& tree = window.state.Tree("treeUpload");
    tree.Clear();
    ApplyControlMarkers(upload, window);
    window.stories.clear();
    window.imageCount = 0;
    window.otherFileCount = 0;
    window.unreadStories.clear();
    for (const std::string& name : NamesWithExtension(upload, ".xml")) {
        XmlDocument document;
        if (!document.LoadFile(upload / name)) {
            window.unreadStories.push_back(
                FormatParseErrorStatus(name, document.ParseError().value_or(XmlParseError{})));
            window.state.ShowStatusError(window.unreadStories.back());
            continue;
        }
        const XmlNode root = document.DocumentElement();
        ListedStory story{name, ListedNames(root, "Images/ImageBag/Image"),
                          ListedNames(root, "Files/FileBag/File")};
        window.imageCount += static_cast<int>(story.images.size());
        window.otherFileCount += static_cast<int>(story.files.size());
        window.stories.push_back(std::move(story));
        AddStoryNodes(tree, window.stories.back(), window.stories.size());
    }
    ApplyListState(session, window);
}

}  // namespace tessarin
