#include "app/window_state.h"

namespace tessarin {
namespace {

TreeNode* FindIn(std::list<TreeNode>& nodes, std::string_view key) {
    for (auto& node : nodes) {
        if (node.key == key) return &node;
        if (auto* found = FindIn(node.children, key)) return found;
    }
    return nullptr;
}

void Collect(const std::list<TreeNode>& nodes, std::vector<const TreeNode*>& out) {
    for (const auto& node : nodes) {
        out.push_back(&node);
        Collect(node.children, out);
    }
}

template <typename Map>
auto& Obtain(Map& map, std::string_view name) {
    auto found = map.find(name);
    if (found == map.end())
        found = map.emplace(std::string(name), typename Map::mapped_type{}).first;
    return found->second;
}

template <typename Map>
auto FindPointer(const Map& map, std::string_view name) -> const typename Map::mapped_type* {
    auto found = map.find(name);
    return found == map.end() ? nullptr : &found->second;
}

}  // namespace

TreeNode& TreeModel::Add(TreeNode* parent, TreeNode node) {
    auto& siblings = parent ? parent->children : roots_;
    siblings.push_back(std::move(node));
    return siblings.back();
}

TreeNode* TreeModel::Find(std::string_view key) {
    return FindIn(roots_, key);
}

const TreeNode* TreeModel::Find(std::string_view key) const {
    return const_cast<TreeModel*>(this)->Find(key);
}

std::vector<const TreeNode*> TreeModel::AllNodes() const {
    std::vector<const TreeNode*> nodes;
    Collect(roots_, nodes);
    return nodes;
}

std::size_t TreeModel::Count() const {
    return AllNodes().size();
}

ControlState& WindowState::Control(std::string_view name) {
    return Obtain(controls_, name);
}
const ControlState* WindowState::FindControl(std::string_view name) const {
    return FindPointer(controls_, name);
}
TreeModel& WindowState::Tree(std::string_view name) {
    return Obtain(trees_, name);
}
const TreeModel* WindowState::FindTree(std::string_view name) const {
    return FindPointer(trees_, name);
}
ListModel& WindowState::List(std::string_view name) {
    return Obtain(lists_, name);
}
const ListModel* WindowState::FindList(std::string_view name) const {
    return FindPointer(lists_, name);
}

void WindowState::ShowStatusError(std::string text) {
    status_.text = std::move(text);
    status_.errorPicture = true;
    ++beeps;
}

void PrependTagWord(ControlState& control, std::string_view word) {
    control.tag = control.tag.empty() ? std::string(word) : std::string(word) + "/" + control.tag;
}

void AppendTagWord(ControlState& control, std::string_view word) {
    control.tag = control.tag.empty() ? std::string(word) : control.tag + "/" + std::string(word);
}

bool TagHolds(const WindowState& window, std::string_view control, std::string_view word) {
    const ControlState* state = window.FindControl(control);
    return state && state->tag.find(word) != std::string::npos;
}

}  // namespace tessarin
