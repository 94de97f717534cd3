// RefreshStoryPanel: the editor brought back to a new story.

#include "attachments/attachments.h"
#include "config/load_configuration.h"
#include "editing/copy_fit.h"
#include "editing/story_forms.h"
#include "metadata/metadata_fields.h"
#include "metadata/publication_selection.h"
#include "metadata/taxonomy.h"
#include "story/story_file_reader.h"

namespace tessarin {
namespace {

constexpr std::string_view kMetadataFields[] = {
    "txtPublication",     "txtClassification",    "txtSectionGeneral", "txtSubSectionGeneral",
    "txtSectionLocal",    "txtSubSectionLocal",   "txtCodeLocal1",     "txtCodeLocal2",
    "txtPublicationDate", "txtPublicationNumber", "txtEventDate",      "chkColdStory"};

// Toolbar buttons and menu entries that a new story shows released.
constexpr std::string_view kReleasedControls[] = {"Bold",
                                                  "Italic",
                                                  "Underline",
                                                  "Superscript",
                                                  "QA",
                                                  "mnuFormatQuestionsAnswers",
                                                  "mnuDisplayParagraphs",
                                                  "mnuDisplayLogs",
                                                  "Logs",
                                                  "cmdSignature",
                                                  "mnuDisplayTextZoom",
                                                  "Zoom"};

void UncheckAll(std::list<TreeNode>& nodes) {
    for (TreeNode& node : nodes) {
        node.checked = false;
        UncheckAll(node.children);
    }
}

// Keywords hang under the categories, which hang under the root.
void RemoveKeywordNodes(TreeModel& keywords) {
    for (TreeNode& root : keywords.Roots()) {
        for (TreeNode& category : root.children)
            category.children.clear();
    }
}

void EmptyNotesTree(EditorSession& session) {
    TreeModel& notes = session.window.Tree("treeNotes");
    if (notes.Empty()) return;
    TreeNode& root = notes.Roots().front();
    root.children.clear();
    root.text = session.configuration.story.notes.name + " [0]";
    root.expanded = false;
}

}  // namespace

void RefreshStoryPanel(EditorSession& session) {
    WindowState& window = session.window;
    const Configuration& configuration = session.configuration;
    window.title =
        WindowTitle(TESSARIN_VERSION, configuration.general.client, session.Message("NewStory"));
    ResetStory(session.story, configuration);
    for (std::string_view field : kMetadataFields)
        window.Control(field).toolTip.clear();
    window.List("lstStatus").selected = session.story.statusIndex;
    window.List("lstGenre").selected = session.story.genreIndex;
    session.highlights.Clear(kPublicationsTree, window.Tree(kPublicationsTree));
    session.highlights.Clear(kTaxonomyTree, window.Tree(kTaxonomyTree));
    UncheckAll(window.Tree(kTaxonomyTree).Roots());
    window.List("lstTaxonomy").Clear();
    RemoveKeywordNodes(window.Tree("treeKeywords"));
    ResetCopyFitDisplay(session);
    for (std::string_view control : kReleasedControls)
        window.Control(control).checked = false;
    EmptyNotesTree(session);
    window.List("lstLogs").Clear();
    window.List("lstLogsTypes").Clear();
    ClearAttachments(session);
    session.undo = UndoRing{};
    session.mainBoxLocked = false;
    window.ClearStatus();
}

void ShowNewStory(EditorSession& session) {
    RefreshStoryPanel(session);
    ChooseForm(session, 0);
    RecountAllBoxes(session);
    PrepareNewStoryMetadata(session);
}

}  // namespace tessarin
