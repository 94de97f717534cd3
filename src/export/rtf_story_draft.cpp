#include "export/rtf_story_draft.h"

#include <vector>

#include "common/utf8.h"
#include "editing/non_breaking_mark.h"

namespace tessarin {
namespace {

constexpr char16_t kNoBreakSpace = u'\u00A0';
constexpr std::u16string_view kLineEnd = u"\r\n";

bool BlankText(const StyledText& text) {
    for (const char16_t c : text.Text()) {
        if (c != u' ') return false;
    }
    return true;
}

// The box's text with every character's font given, so that the draft no longer depends on
// the box it came from.
StyledText WithBoxFont(const StyledText& box, const std::string& fontName, int fontSize,
                       bool bold) {
    StyledText text = box;
    text.ApplyFormat(0, text.Length(), [&](CharFormat& format) {
        if (format.fontName.empty()) format.fontName = fontName;
        if (format.fontSize == 0) format.fontSize = fontSize;
        if (bold) format.bold = true;
    });
    return text;
}

// Rebuilds the text run by run without the protected characters and with real no-break
// spaces, in one pass over the text.
StyledText Cleaned(const StyledText& draft) {
    StyledText cleaned;
    const std::u16string text = draft.Text();
    for (const FormatRun& run : draft.Runs()) {
        if (run.format.isProtected) continue;
        std::u16string piece = text.substr(run.start, run.length);
        for (char16_t& c : piece) {
            if (c == kNonBreakingMark) c = kNoBreakSpace;
        }
        CharFormat format = run.format;
        if (format.colour == kNonBreakingMarkGrey) format.colour = 0;
        cleaned.Insert(cleaned.Length(), piece, format);
    }
    return cleaned;
}

}  // namespace

StoryDraft BuildStoryDraft(const StoryRecord& story, const Preferences& preferences) {
    const std::string& signatureFont = preferences.FontName[kTextBoxCount - 1];
    const int signatureSize = preferences.FontSize[kTextBoxCount - 1];

    StyledText gathered;
    for (std::size_t box = 0; box < kTextBoxCount; ++box) {
        const StyledText& text = story.boxes[box];
        if (BlankText(text)) continue;
        gathered.Insert(gathered.Length(),
                        WithBoxFont(text, preferences.FontName[box], preferences.FontSize[box],
                                    preferences.FontBold[box]));
        gathered.Insert(gathered.Length(), kLineEnd, gathered.FormatAt(gathered.Length() - 1));
    }

    StoryDraft draft;
    draft.text = Cleaned(gathered);
    if (!story.signature.empty()) {
        CharFormat format;
        format.fontName = signatureFont;
        format.fontSize = signatureSize;
        format.bold = true;
        draft.signatureStart = draft.text.Length();
        draft.text.Insert(draft.text.Length(), Utf8ToUtf16(story.signature) + u"\r\n", format);
    }
    return draft;
}

}  // namespace tessarin
