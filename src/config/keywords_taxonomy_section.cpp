#include "config/keywords_taxonomy_section.h"

#include <string>
#include <string_view>

#include "common/number_parse.h"
#include "common/reading_idiom.h"
#include "config/numbered_name.h"
#include "config/text_trim.h"

namespace tessarin {
namespace {

constexpr int kTopicPicture = 7;
constexpr int kLeafPicture = 6;

// Adds one KeywordsCategory under the root. A category without a numeric index is skipped,
// and so is one whose key the tree already holds: keys name the categories, and a story's
// keywords are put back under their category by key.
void ReadCategory(const XmlNode& element, TreeNode* root, Configuration& configuration,
                  TreeModel& tree) {
    const std::string index = element.Attribute("CategoryIndex");
    if (!IsNumeric(index) || element.Attribute("Visible") == "false") return;
    configuration.keywordsOn = true;
    const std::int32_t number = ParseLeadingInteger(index);
    const std::string key = NumberedName("K", number);
    if (!root || tree.Find(key)) return;
    TreeNode category;
    category.key = key;
    category.text = element.Attribute("Name");
    // A missing Mandatory marks the category mandatory too; only "false" does not.
    if (element.Attribute("Mandatory") != "false") category.text += " [*]";
    category.tag = std::to_string(number);
    category.expanded = true;
    tree.Add(root, std::move(category));
}

// The topic's own text: the first line of the element's text, blanks around it removed.
std::string TopicText(const XmlNode& topic) {
    const std::string whole = topic.Text();
    std::string_view text = TrimWhitespace(whole);
    text = text.substr(0, text.find('\n'));
    return std::string(TrimWhitespace(text));
}

void ReadTopics(const XmlNode& parentElement, TreeNode& parentNode, TreeModel& tree) {
    int running = 0;
    for (const XmlNode& element : parentElement.SelectNodes("./Topic")) {
        TreeNode topic;
        topic.key = NumberedName(parentNode.key + "/", ++running);
        topic.text = TopicText(element);
        topic.tag = element.Attribute("FormalName");
        const bool hasChildren = element.HasChildElements();
        topic.picture = hasChildren ? kTopicPicture : kLeafPicture;
        topic.hasCheckbox = !hasChildren;
        TreeNode& added = tree.Add(&parentNode, std::move(topic));
        if (hasChildren) ReadTopics(element, added, tree);
    }
}

}  // namespace

void ReadKeywords(const XmlNode& keywords, Configuration& configuration, WindowState& window) {
    TreeModel& tree = window.Tree("treeKeywords");
    tree.Clear();
    configuration.keywordsOn = false;
    TreeNode* root = nullptr;
    const std::string name = keywords.Attribute("Name");
    if (!name.empty()) {
        TreeNode node;
        node.key = "K";
        node.text = name;
        node.expanded = true;
        root = &tree.Add(nullptr, std::move(node));
    }
    for (const XmlNode& element : keywords.SelectNodes("KeywordsCategory")) {
        ReadCategory(element, root, configuration, tree);
    }
}

void ReadTaxonomy(const XmlNode& taxonomy, Configuration& configuration, WindowState& window) {
    TreeModel& tree = window.Tree("treeTaxonomy");
    ControlState& control = window.Control("treeTaxonomy");
    tree.Clear();
    configuration.taxonomyOn = false;
    control.tag = "invisible";
    if (taxonomy && taxonomy.Attribute("Visible") != "false") {
        control.tag.clear();
        configuration.taxonomyOn = true;
    }
    if (FlagDefaultFalse(taxonomy.Attribute("Mandatory"))) AppendTagWord(control, "mandatory");
    const std::string name = taxonomy.Attribute("Name");
    if (name.empty()) return;
    TreeNode node;
    node.key = "T0";
    node.text = name;
    node.expanded = true;
    if (control.tag.find("mandatory") != std::string::npos) node.text += " [*]";
    ReadTopics(taxonomy, tree.Add(nullptr, std::move(node)), tree);
}

}  // namespace tessarin
