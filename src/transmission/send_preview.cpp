#include "transmission/send_preview.h"

#include "common/plain_file_name.h"
#include "common/xml_document.h"
#include "story/story_plain_text.h"

namespace tessarin {

void PreviewNode(EditorSession& session, WorkflowWindow& window, std::string_view key) {
    window.selectedUpload = std::string(key);
    window.previewText.clear();
    window.previewImage.clear();
    window.state.ClearStatus();
    const TreeNode* node = window.state.Tree("treeUpload").Find(key);
    if (node == nullptr || !IsPlainFileName(node->text)) return;
    const std::filesystem::path file = session.paths.uploadDir / node->text;
    if (node->tag == "I") {
        window.previewImage = file;
    } else if (node->tag == "S") {
        XmlDocument story;
        if (!story.LoadFile(file)) {
            window.state.ShowStatusError(FormatParseErrorStatus(
                file.string(), story.ParseError().value_or(XmlParseError{})));
            return;
        }
        window.previewText = StoryPlainText(story.DocumentElement());
    }
}

}  // namespace tessarin
