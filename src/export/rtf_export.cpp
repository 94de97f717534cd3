#include "export/rtf_export.h"

#include <algorithm>

#include "common/file_io.h"
#include "common/utf8.h"
#include "export/rtf_story_draft.h"
#include "export/rtf_writer.h"

namespace tessarin {
namespace {

std::string Fragment(const std::string& utf8) {
    return RtfEscapedText(Utf8ToUtf16(utf8));
}

// A caption or credit with the label of its field.
std::string LabelledLine(const EditorSession& session, const char* label, const std::string& text) {
    if (text.empty()) return {};
    const ControlState* control = session.window.FindControl(label);
    const std::string caption = control ? control->caption : std::string();
    return "\\par " + Fragment(caption + ": " + text) + "\r\n";
}

}  // namespace

std::string DraftImagesRtf(const EditorSession& session) {
    if (!session.preferences.RTFWithImages) return {};
    std::string rtf;
    for (const StoryImage& image : session.story.images) {
        if (image.path.empty()) continue;
        std::string path = image.path;
        std::replace(path.begin(), path.end(), '\\', '/');
        rtf += "\\par {{\\field\\fldpriv{\\*\\fldinst{\\\\import \"" + Fragment(path) +
               "\"}}{\\fldrslt }}}\r\n";
        rtf += LabelledLine(session, "lblImageCaption", image.caption);
        rtf += LabelledLine(session, "lblImageCredit", image.credit);
        rtf += "\\par \r\n";
    }
    return rtf;
}

BesideStoryExport ExportRtfCommand(EditorSession& session) {
    if (!StoryHasPlace(session)) return {};
    const StoryDraft draft = BuildStoryDraft(session.story, session.preferences);
    if (draft.Empty()) {
        session.window.ShowStatusError(session.Message("EmptyStory"));
        return {};
    }
    std::string rtf = DraftRtf(draft);
    rtf.insert(rtf.rfind('}'), DraftImagesRtf(session));
    const std::filesystem::path path = PathBesideStory(session, "rtf");
    if (!WriteFileAtomically(path, rtf)) {
        session.window.ShowStatusError("Cannot write " + path.string());
        return {};
    }
    return ExportedBesideStory(session, path);
}

}  // namespace tessarin
