#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// What the main window shows, kept without a window: the configuration load and the editor
// fill it, the desktop editor draws it, and tests read it. Controls are named as the
// desktop editor's widgets are (their object names): "lblAuthor", "lstStoryTypes",
// "treePublications", "mnuFilePrint", tool-bar buttons by their key ("Print", "SepPrint").

// A colour as the preferences store it: 0x00BBGGRR, or a system colour with the high bit set.
using OleColour = std::uint32_t;
constexpr OleColour Rgb(int red, int green, int blue) {
    return static_cast<OleColour>(red) | (static_cast<OleColour>(green) << 8) |
           (static_cast<OleColour>(blue) << 16);
}

struct ControlState {
    std::string caption;
    std::string toolTip;
    std::string tag;  // holds "mandatory" / "invisible" marks read by the checks
    bool visible = true;
    bool enabled = true;
    bool checked = false;
    int width = -1;   // -1: as designed
    int height = -1;  // -1: as designed
};

struct TreeNode {
    std::string key;
    std::string text;
    std::string tag;
    std::string hiddenText;  // extra text a node carries (a note's body, an image's path)
    OleColour colour = 0;
    bool hasColour = false;
    int picture = 0;
    bool expanded = false;
    bool hasCheckbox = false;
    bool checked = false;
    bool bold = false;
    std::list<TreeNode> children;  // a list, so that references stay valid as nodes are added
};

class TreeModel {
  public:
    void Clear() { roots_.clear(); }
    bool Empty() const { return roots_.empty(); }

    // Adds a node under parent (nullptr: a root) and returns it.
    TreeNode& Add(TreeNode* parent, TreeNode node);

    // The first node, depth first in tree order, whose key is key; nullptr when none.
    TreeNode* Find(std::string_view key);
    const TreeNode* Find(std::string_view key) const;

    std::list<TreeNode>& Roots() { return roots_; }
    const std::list<TreeNode>& Roots() const { return roots_; }

    // Every node, depth first in tree order.
    std::vector<const TreeNode*> AllNodes() const;
    std::size_t Count() const;

  private:
    std::list<TreeNode> roots_;
};

struct ListItem {
    std::string text;
    std::string data;  // the item's data: the text-box digits of a form, a number, ...
};

struct ListModel {
    std::vector<ListItem> items;
    int selected = -1;  // -1: nothing chosen

    void Clear() {
        items.clear();
        selected = -1;
    }
};

// The first panel of the status bar: a text and, for errors, the error picture.
struct StatusPanel {
    std::string text;
    bool errorPicture = false;
};

class WindowState {
  public:
    // The state of a control, created as designed (visible, enabled, empty) on first use.
    ControlState& Control(std::string_view name);
    const ControlState* FindControl(std::string_view name) const;

    TreeModel& Tree(std::string_view name);
    const TreeModel* FindTree(std::string_view name) const;

    ListModel& List(std::string_view name);
    const ListModel* FindList(std::string_view name) const;

    StatusPanel& Status() { return status_; }
    const StatusPanel& Status() const { return status_; }
    void ClearStatus() { status_ = {}; }

    // Shows an error in the first panel with the error picture and one beep.
    void ShowStatusError(std::string text);

    int beeps = 0;
    std::string title;
    // The second panel of the status bar: what the repository said of the last store.
    std::string secondStatus;

  private:
    std::map<std::string, ControlState, std::less<>> controls_;
    std::map<std::string, TreeModel, std::less<>> trees_;
    std::map<std::string, ListModel, std::less<>> lists_;
    StatusPanel status_;
};

// Puts a word into a control's tag: the word alone when the tag is empty, else joined with
// "/" in front of what is there (Prepend) or behind it (Append).
void PrependTagWord(ControlState& control, std::string_view word);
void AppendTagWord(ControlState& control, std::string_view word);

// True when the named control exists and its tag holds word ("mandatory", "invisible").
bool TagHolds(const WindowState& window, std::string_view control, std::string_view word);

}  // namespace tessarin
