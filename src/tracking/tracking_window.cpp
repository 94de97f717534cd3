#include "tracking/tracking_window.h"

#include <algorithm>
#include <unordered_map>

#include "common/clock.h"
#include "common/plain_file_name.h"
#include "config/text_trim.h"
#include "text/styled_text_case.h"
#include "transmission/workflow_inbox.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr std::string_view kMenuKeys[] = {"TrackingDispatchByPublicationDate",
                                          "TrackingDispatchByAuthor",
                                          "TrackingDispatchByLastSaveAuthor",
                                          "TrackingClassifyByForm",
                                          "TrackingDisplayAllStories",
                                          "TrackingDisplayEditorial",
                                          "TrackingDisplayLayout",
                                          "TrackingAutomaticUpdate"};

// The menu entry of a key: "mnu" and the key less its "Tracking".
std::string MenuEntryOf(std::string_view key) {
    return "mnu" + std::string(key.substr(std::string_view("Tracking").size()));
}

// Builds the tree, merging the nodes of equal paths.
class TreeBuilder {
  public:
    explicit TreeBuilder(TreeModel& tree) : tree_(tree) {}

    // The child of parent (nullptr: the top) with that text, made when missing.
    TreeNode& Level(TreeNode* parent, const std::string& text, std::string_view keyPrefix = "") {
        const std::string key = (parent == nullptr ? std::string() : parent->key) + "\x1f" +
                                std::string(keyPrefix) + text;
        const auto [it, added] = nodes_.try_emplace(key, nullptr);
        if (added) {
            TreeNode node;
            node.key = key;
            node.text = text;
            node.expanded = true;
            it->second = &tree_.Add(parent, std::move(node));
        }
        return *it->second;
    }

    TreeNode& Leaf(TreeNode& parent, std::string text, std::string tag, int picture) {
        TreeNode node;
        node.key = std::to_string(++number_) + (tag.ends_with('S') ? "S" : "");
        node.text = std::move(text);
        node.tag = std::move(tag);
        node.picture = picture;
        return tree_.Add(&parent, std::move(node));
    }

  private:
    TreeModel& tree_;
    std::unordered_map<std::string, TreeNode*> nodes_;
    int number_ = 0;
};

void SortByText(std::list<TreeNode>& nodes) {
    nodes.sort([](const TreeNode& a, const TreeNode& b) { return a.text < b.text; });
    for (TreeNode& node : nodes)
        SortByText(node.children);
}

int Today() {
    const LocalDateTime now = Now();
    return now.year * 10000 + now.month * 100 + now.day;
}

// The search text moves to the top of lstTxtSearch.
void RememberSearch(TrackingWindow& window, const std::string& text) {
    std::vector<ListItem>& items = window.state.List("lstTxtSearch").items;
    std::erase_if(items, [&](const ListItem& item) { return item.text == text; });
    items.insert(items.begin(), ListItem{text, ""});
}

}  // namespace

void ClearTrackingDisplay(TrackingWindow& window) {
    window.selected.clear();
    window.storyText.clear();
    window.logs.clear();
    window.picture.clear();
    window.lastAuthor.clear();
    window.waitingIn.clear();
    for (const char* label : {"lblTxtCreation", "lblTxtLastSave", "lblTxtLastAuthor"})
        window.state.Control(label).caption.clear();
    window.state.List("lstLogs").Clear();
    window.state.List("lstLogsTypes").Clear();
    window.state.Control("TabStripLogs").visible = false;
}

bool TrackingAvailable(const EditorSession& session) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    return workflow.TrackingEnabled && workflow.TrackingDisplayAllowed;
}

void OpenTrackingWindow(EditorSession& session, TrackingWindow& window) {
    const InterfaceSettings& interface = session.configuration.interface;
    for (const std::string_view key : kMenuKeys) {
        const std::string& caption = interface.Caption(key);
        if (!caption.empty()) window.state.Control(MenuEntryOf(key)).caption = caption;
    }
    window.state.Control("cmdUpdate").caption = interface.CaptionOr("Update", "Update");
    window.choices = ReadTrackingChoices(session.profile);
    if (window.choices.automaticUpdate) UpdateTracking(session, window);
}

void ChooseTracking(EditorSession& session, TrackingWindow& window,
                    const TrackingChoices& choices) {
    window.choices = choices;
    WriteTrackingChoices(session.profile, choices);
}

void UpdateTracking(EditorSession& session, TrackingWindow& window) {
    TreeModel& tree = window.state.Tree("treeTracking");
    tree.Clear();
    ClearTrackingDisplay(window);
    window.counts = {};
    const int today = Today();
    std::string search(TrimWhitespace(window.search));
    if (!search.empty()) {
        RememberSearch(window, search);
        if (!window.matchCase) search = UpperCaseText(search);
        window.counts.searched = true;
    }
    const fs::path folder = ConfiguredFolder(session.configuration.workflow.TrackingTextsDirectory);
    if (folder.empty()) window.cache.Clear();
    const std::vector<TrackingCache::Entry> entries =
        folder.empty()
            ? std::vector<TrackingCache::Entry>()
            : window.cache.Refresh(folder, session.configuration.newsServices.headLineRecipient,
                                   !search.empty());
    const TrackingChoices& choices = window.choices;
    TreeBuilder builder(tree);
    for (const TrackingCache::Entry& entry : entries) {
        if (!entry.story) continue;
        const TrackedStory& story = *entry.story;
        if (!search.empty()) {
            const std::string text = window.matchCase ? story.text : UpperCaseText(story.text);
            if (text.find(search) == std::string::npos) continue;
            ++window.counts.found;
        }
        if ((choices.show == TrackingShow::Editorial && story.layout) ||
            (choices.show == TrackingShow::Layout && !story.layout)) {
            continue;
        }
        TreeNode* parent = nullptr;
        if (choices.dispatch != TrackingDispatch::ByDate) {
            parent = &builder.Level(nullptr, choices.dispatch == TrackingDispatch::ByAuthor
                                                 ? story.author
                                                 : story.lastSaveAuthor);
        }
        const std::string dateText =
            story.dateNumber == 0 ? "[" + story.dateLabel + "] "
                                  : "[" + std::to_string(story.dateNumber) + "] " + story.longDate;
        TreeNode& date = builder.Level(parent, dateText, "D");
        date.tag = "R";
        if (story.dateNumber != 0) {
            date.hasColour = true;
            date.colour = story.dateNumber < today ? kPastDateColour : kDateColour;
            date.bold = story.dateNumber < today;
        }
        parent = &builder.Level(&builder.Level(&date, story.publication), story.classification);
        if (!story.section.empty()) parent = &builder.Level(parent, story.section);
        if (!story.subsection.empty()) parent = &builder.Level(parent, story.subsection);
        if (choices.byForm) parent = &builder.Level(parent, story.form);
        TreeNode& node = builder.Leaf(
            *parent, "[" + entry.name + "]" + (story.title.empty() ? "" : " ") + story.title,
            entry.name + "S", story.layout ? kLayoutPicture : kEditorialPicture);
        ++window.counts.stories;
        for (const std::string& image : story.images)
            builder.Leaf(node, image, image + "I", 0);
        for (const std::string& file : story.files)
            builder.Leaf(node, file, file + "F", 0);
        window.counts.images += static_cast<int>(story.images.size());
        window.counts.otherFiles += static_cast<int>(story.files.size());
    }
    SortByText(tree.Roots());
    window.state.Control("lblTreeTracking").caption = TrackingCountsText(session, window.counts);
}

std::string TrackingCountsText(const EditorSession& session, const TrackingCounts& counts) {
    std::string text = session.Message("StoriesLabel") + ": " + std::to_string(counts.stories) +
                       ", " + session.Message("ImagesLabel") + ": " + std::to_string(counts.images);
    const InterfaceSettings& interface = session.configuration.interface;
    if (interface.OtherFilesVisible) {
        text += ", " + interface.CaptionOr("OtherFiles", "Other files") + ": " +
                std::to_string(counts.otherFiles);
    }
    if (counts.searched)
        text += ", " + session.Message("StoriesFound") + ": " + std::to_string(counts.found);
    return text;
}

fs::path TrackedFileOf(const EditorSession& session, const TreeNode& node) {
    if (node.tag.size() < 2) return {};
    const char kind = node.tag.back();
    const WorkflowSettings& workflow = session.configuration.workflow;
    const fs::path folder = ConfiguredFolder(kind == 'S' ? workflow.TrackingTextsDirectory
                                                         : workflow.TrackingImagesDirectory);
    const std::string name = node.tag.substr(0, node.tag.size() - 1);
    if (folder.empty() || !IsPlainFileName(name) || (kind != 'S' && kind != 'I' && kind != 'F'))
        return {};
    return folder / name;
}

}  // namespace tessarin
