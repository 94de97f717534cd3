#include "config/story_section.h"

#include "common/number_parse.h"
#include "common/reading_idiom.h"
#include "config/numbered_name.h"
#include "config/text_trim.h"

namespace tessarin {
namespace {

void ReadSignature(const XmlNode& signature, SignatureSettings& settings, WindowState& window) {
    ControlState& text = window.Control("txtSignature");
    ControlState& button = window.Control("cmdSignature");
    text.tag.clear();
    text.visible = button.visible = true;
    settings = {};
    settings.toolTip = signature.Attribute("Name");
    if (!settings.toolTip.empty()) button.toolTip = settings.toolTip;
    settings.visible = FlagDefaultTrue(signature.Attribute("Visible"));
    if (!settings.visible) {
        text.visible = button.visible = false;
        PrependTagWord(text, "invisible");
    }
}

void ReadNotes(const XmlNode& notes, NotesSettings& settings, WindowState& window) {
    settings.name = TextOr(notes.Attribute("Name"), "Notes");
    settings.addHere = TextOr(notes.Attribute("AddHere"), "Add note here");
    settings.toolTipText =
        TextOr(notes.Attribute("ToolTipText"), "Enter key to add / Del key to delete");
    settings.visible = FlagDefaultTrue(notes.Attribute("Visible"));
    settings.manageAllNotes = FlagDefaultTrue(notes.Attribute("ManageAllNotes"));

    ControlState& control = window.Control("treeNotes");
    control.toolTip = settings.toolTipText;
    control.visible = settings.visible;
    TreeModel& tree = window.Tree("treeNotes");
    tree.Clear();
    TreeNode root;
    root.key = "N1";
    root.text = settings.name + " [0]";
    tree.Add(nullptr, std::move(root));
}

NewsServiceEntry ReadNewsService(const XmlNode& element) {
    return {element.Attribute("Name"),
            WithTrailingSeparator(element.Attribute("Repository")) + "|" +
                WithTrailingSeparator(element.Attribute("ArchivesRepository"))};
}

void ReadNewsServices(const XmlNode& section, NewsServicesSettings& settings, WindowState& window) {
    settings = {};
    settings.visible = section && FlagDefaultTrue(section.Attribute("Visible"));
    settings.name = section.Attribute("Name");
    settings.headLineRecipient = NumberOr(section.Attribute("HeadLineRecipient"), 3);
    settings.textRecipient = NumberOr(section.Attribute("TextRecipient"), 6);
    settings.copiedColour = static_cast<std::uint32_t>(NumberOr(
        section.Attribute("CopiedColor"), static_cast<std::int32_t>(settings.copiedColour)));
    settings.partiallyCopiedColour = static_cast<std::uint32_t>(
        NumberOr(section.Attribute("PartiallyCopiedColor"),
                 static_cast<std::int32_t>(settings.partiallyCopiedColour)));
    ControlState& button = window.Control("NewsService");
    button.visible = settings.visible;
    button.toolTip = settings.name;

    TreeModel& menu = window.Tree("mnuNewsService");
    menu.Clear();
    for (const XmlNode& element : section.SelectNodes("NewsService")) {
        if (settings.services.size() == kMaxNewsServices) break;
        NewsServiceEntry entry = ReadNewsService(element);
        TreeNode item;
        item.key = NumberedName("k", static_cast<long long>(settings.services.size()) + 1);
        item.text = entry.name;
        item.tag = entry.repositories;
        menu.Add(nullptr, std::move(item));
        settings.services.push_back(std::move(entry));
    }

    const XmlNode categories = section.SelectSingleNode("Categories");
    settings.categoriesName = categories.Attribute("Name");
    settings.allCategoriesName = categories.Attribute("AllCategories");
    for (const XmlNode& element : categories.SelectNodes("Category")) {
        NewsCategory category{element.Text(), element.Attribute("FormalName")};
        if (category.text.empty() || category.formalName.empty()) continue;
        settings.categories.push_back(std::move(category));
    }
}

void ReadTextBox(const XmlNode& element, int index, TextBoxSettings& settings,
                 WindowState& window) {
    ControlState& box = window.Control(TextBoxControlName(index));
    ControlState& label = window.Control(TextBoxLabelName(index));
    box.tag.clear();
    box.visible = label.visible = true;
    box.height = -1;

    settings.label = std::string(TrimWhitespace(element.Attribute("Name")));
    if (!settings.label.empty()) {
        label.caption = settings.label;
        if (!settings.storedName) settings.storedName = settings.label;
    }
    const std::string height = element.Attribute("Height");
    settings.height.reset();
    if (IsNumeric(height)) {
        settings.height = ParseLeadingInteger(height);
        box.height = *settings.height;
    }
    settings.visible = FlagDefaultTrue(element.Attribute("Visible"));
    if (!settings.visible) {
        box.visible = label.visible = false;
        box.height = 0;
        PrependTagWord(box, "invisible");
    }
}

}  // namespace

std::string TextBoxControlName(int index) {
    return NumberedName("TextBox", index);
}

std::string TextBoxLabelName(int index) {
    return NumberedName("lblTextBox", index);
}

std::string WithTrailingSeparator(std::string_view directory) {
    std::string path(directory);
    if (path.empty() || path.back() == '\\' || path.back() == '/') return path;
    const bool backslashesOnly =
        path.find('\\') != std::string::npos && path.find('/') == std::string::npos;
    path += backslashesOnly ? '\\' : '/';
    return path;
}

void ReadStoryAndNewsServices(const XmlNode& story, const XmlNode& newsServices,
                              Configuration& configuration, WindowState& window) {
    StorySettings& settings = configuration.story;
    ReadSignature(story.SelectSingleNode("Signature"), settings.signature, window);
    ReadNotes(story.SelectSingleNode("Notes"), settings.notes, window);
    ReadNewsServices(newsServices, configuration.newsServices, window);
    for (int index = 0; index < kTextBoxCount; ++index) {
        const XmlNode element = story.SelectSingleNode(NumberedName("TextBox", index + 1));
        ReadTextBox(element, index, settings.textBoxes[index], window);
    }
}

}  // namespace tessarin
