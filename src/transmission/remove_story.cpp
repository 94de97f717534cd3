#include "transmission/remove_story.h"

#include <system_error>

#include "common/plain_file_name.h"
#include "common/read_only_file.h"
#include "common/xml_document.h"
#include "export/export_frame.h"
#include "transmission/send_list.h"
#include "transmission/source_story.h"

namespace fs = std::filesystem;

namespace tessarin {

bool RemoveStory(EditorSession& session, WorkflowWindow& window) {
    window.state.ClearStatus();
    const TreeNode* node = window.state.Tree("treeUpload").Find(window.selectedUpload);
    if (window.selectedUpload.empty() || node == nullptr || node->tag != "S") {
        window.state.ShowStatusError(session.Message("SelectStory"));
        return false;
    }
    const fs::path& upload = session.paths.uploadDir;
    std::error_code ignored;
    for (const TreeNode& file : node->children) {
        if (IsPlainFileName(file.text)) fs::remove(upload / file.text, ignored);
    }
    const std::string name = node->text;
    XmlDocument staged;
    if (!staged.LoadFile(upload / name)) {
        window.state.ShowStatusError(ExportParseErrorText(
            (upload / name).string(), staged.ParseError().value_or(XmlParseError{})));
        return false;
    }
    const fs::path source = OriginalPathOf(staged);
    if (IsReadOnlyFile(source)) MakeWritable(source);
    fs::remove(upload / name, ignored);
    fs::remove(upload / NoControlMarkerName(name), ignored);
    window.selectedUpload.clear();
    window.previewText.clear();
    window.previewImage.clear();
    SetTreeUpload(session, window);
    return true;
}

}  // namespace tessarin
