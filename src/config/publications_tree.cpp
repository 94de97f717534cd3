#include "config/publications_tree.h"

#include <string>

#include "config/configuration_error.h"
#include "config/numbered_name.h"

namespace tessarin {
namespace {

// Adds the nodes of one build, with the running number of each level over the whole tree.
class PublicationsBuilder {
  public:
    PublicationsBuilder(bool allPublications, const Preferences& preferences, TreeModel& tree)
        : allPublications_(allPublications),
          generalColour_(preferences.ClassificationColorGeneral),
          localColour_(preferences.ClassificationColorLocal),
          tree_(tree) {}

    void AddPublication(const XmlNode& element) {
        if (LeftOut(element)) return;
        TreeNode& node = Add(nullptr, element, NumberedName("P", ++publications_), "P");
        for (const XmlNode& child : element.SelectNodes("Classification")) {
            AddClassification(child, node);
        }
    }

  private:
    bool LeftOut(const XmlNode& element) const {
        return !allPublications_ && element.Attribute("Preferred") == "false";
    }

    TreeNode& Add(TreeNode* parent, const XmlNode& element, std::string key, std::string tag) {
        TreeNode node;
        node.key = std::move(key);
        node.text = element.Attribute("Name");
        node.tag = std::move(tag);
        node.expanded = true;
        return tree_.Add(parent, std::move(node));
    }

    TreeNode& AddColoured(TreeNode& parent, const XmlNode& element, std::string key,
                          std::string tag, OleColour colour) {
        TreeNode& node = Add(&parent, element, std::move(key), std::move(tag));
        node.colour = colour;
        node.hasColour = true;
        return node;
    }

    static std::string TypeLetter(const std::string& type) {
        if (type == "General") return "G";
        if (type == "Local") return "L";
        return "";
    }

    void AddClassification(const XmlNode& element, TreeNode& publication) {
        if (LeftOut(element)) return;
        const std::string letter = TypeLetter(element.Attribute("Type"));
        const OleColour colour = letter == "L" ? localColour_ : generalColour_;
        TreeNode& node = AddColoured(publication, element, NumberedName("C", ++classifications_),
                                     "C" + letter, colour);
        for (const XmlNode& child : element.SelectNodes("Section")) {
            AddSection(child, node, colour);
        }
    }

    void AddSection(const XmlNode& element, TreeNode& classification, OleColour colour) {
        if (LeftOut(element)) return;
        TreeNode& node =
            AddColoured(classification, element, NumberedName("S", ++sections_), "S", colour);
        for (const XmlNode& child : element.SelectNodes("SubSection")) {
            AddSubSection(child, node, colour);
        }
    }

    void AddSubSection(const XmlNode& element, TreeNode& section, OleColour colour) {
        if (LeftOut(element)) return;
        std::string code = element.Attribute("Code1");
        const std::string code2 = element.Attribute("Code2");
        if (!code2.empty()) code += "/" + code2;
        AddColoured(section, element, NumberedName("T", ++subSections_), "T" + code, colour);
    }

    bool allPublications_;
    OleColour generalColour_;
    OleColour localColour_;
    TreeModel& tree_;
    int publications_ = 0;
    int classifications_ = 0;
    int sections_ = 0;
    int subSections_ = 0;
};

void SetViewChecks(bool allPublications, WindowState& window) {
    window.Control("mnuDisplayPublicationsPreferred").checked = !allPublications;
    window.Control("mnuDisplayPublicationsFull").checked = allPublications;
}

bool FirstClassificationIsGeneral(const TreeModel& tree) {
    if (tree.Empty()) return false;
    const TreeNode& publication = tree.Roots().front();
    return !publication.children.empty() && publication.children.front().tag == "CG";
}

}  // namespace

bool BuildPublicationsTree(const XmlNode& documentElement, const std::filesystem::path& document,
                           bool allPublications, const Preferences& preferences,
                           WindowState& window) {
    TreeModel& tree = window.Tree("treePublications");
    tree.Clear();
    const XmlNode section = documentElement.SelectSingleNode("Publications");
    if (!section) {
        ReportConfigurationError(window, document, " - missing section 'Publications'");
        return false;
    }
    const std::vector<XmlNode> publications = section.SelectNodes("Publication");
    if (publications.empty()) {
        ReportConfigurationError(window, document, " - missing tag 'Publication'");
        return false;
    }
    PublicationsBuilder builder(allPublications, preferences, tree);
    for (const XmlNode& publication : publications)
        builder.AddPublication(publication);
    return true;
}

bool LoadPublications(const XmlNode& documentElement, const std::filesystem::path& document,
                      const Preferences& preferences, Configuration& configuration,
                      WindowState& window) {
    SetViewChecks(false, window);
    configuration.publications.allPublications = false;
    if (!BuildPublicationsTree(documentElement, document, false, preferences, window)) {
        return false;
    }
    configuration.publications.classifiedGeneral =
        FirstClassificationIsGeneral(window.Tree("treePublications"));
    return true;
}

bool ReloadPublications(const std::filesystem::path& document, const Preferences& preferences,
                        const Configuration& configuration, WindowState& window) {
    window.ClearStatus();
    window.Tree("treePublications").Clear();
    XmlDocument xml;
    if (!xml.LoadFile(document)) {
        window.ShowStatusError(
            FormatParseErrorStatus(document.string(), xml.ParseError().value_or(XmlParseError{})));
        return false;
    }
    return BuildPublicationsTree(xml.DocumentElement(), document,
                                 configuration.publications.allPublications, preferences, window);
}

bool ShowPreferredPublications(const std::filesystem::path& document,
                               const Preferences& preferences, Configuration& configuration,
                               WindowState& window) {
    SetViewChecks(false, window);
    configuration.publications.allPublications = false;
    return ReloadPublications(document, preferences, configuration, window);
}

bool ShowAllPublications(const std::filesystem::path& document, const Preferences& preferences,
                         Configuration& configuration, WindowState& window) {
    SetViewChecks(true, window);
    configuration.publications.allPublications = true;
    return ReloadPublications(document, preferences, configuration, window);
}

}  // namespace tessarin
