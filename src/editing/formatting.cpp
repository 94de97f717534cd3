#include "editing/formatting.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "common/clock.h"
#include "common/date_format.h"
#include "common/utf8.h"
#include "config/story_section.h"
#include "editing/box_change.h"
#include "editing/non_breaking_mark.h"
#include "metadata/field_labels.h"

namespace tessarin {
namespace {

constexpr int kSuperscriptOffset = 100;
constexpr int kSuperscriptSizeChange = 3;
constexpr OleColour kNormalTextColour = 0;

// Changes the format over the selection and commits when that changed anything.
bool ApplyAndCommit(EditorSession& session, StyledText& box, const TextSelection& selection,
                    const std::function<void(CharFormat&)>& change) {
    const StyledText before = box.Slice(selection.start, selection.length);
    box.ApplyFormat(selection.start, selection.length, change);
    if (box.Slice(selection.start, selection.length) == before) return false;
    CommitBoxChange(session, selection.box);
    return true;
}

// The box when the selection may take a format: not empty and free of anchors.
StyledText* FormattableBox(EditorSession& session, TextSelection& selection) {
    StyledText* box = EditableBox(session, selection);
    if (box == nullptr || selection.length == 0 ||
        HoldsProtectedText(*box, selection.start, selection.length)) {
        return nullptr;
    }
    return box;
}

bool ToggleAttribute(EditorSession& session, TextSelection& selection,
                     bool CharFormat::*attribute) {
    StyledText* box = FormattableBox(session, selection);
    if (box == nullptr) return false;
    const bool allSet =
        box->AllOf(selection.start, selection.length,
                   [attribute](const CharFormat& format) { return format.*attribute; });
    return ApplyAndCommit(session, *box, selection,
                          [attribute, allSet](CharFormat& format) { format.*attribute = !allSet; });
}

OleColour InterColour(const Preferences& preferences, int style) {
    return style == 1   ? preferences.InterColor1
           : style == 2 ? preferences.InterColor2
                        : preferences.InterColor3;
}

// The selection grown back to the character after the previous line feed and on to the line
// break that ends its last paragraph.
void WidenToParagraphs(const StyledText& box, TextSelection& selection) {
    const std::u16string text = box.Text();
    const std::size_t lineFeedBefore =
        selection.start == 0 ? std::u16string::npos : text.rfind(u'\n', selection.start - 1);
    const std::size_t start = lineFeedBefore == std::u16string::npos ? 0 : lineFeedBefore + 1;
    std::size_t end = text.find(u'\n', selection.start + selection.length);
    if (end == std::u16string::npos) {
        end = text.size();
    } else if (end > start && text[end - 1] == u'\r') {
        --end;
    }
    selection.start = start;
    selection.length = end - start;
}

bool ChangeCase(EditorSession& session, TextSelection& selection,
                void (StyledText::*convert)(std::size_t, std::size_t)) {
    StyledText* box = EditableBox(session, selection);
    if (box == nullptr) return false;
    const bool whole = selection.length == 0;
    const std::size_t start = whole ? 0 : selection.start;
    const std::size_t length = whole ? box->Length() : selection.length;
    std::vector<FormatRun> unprotected;
    box->ForEachRun(start, length, [&unprotected](const FormatRun& run) {
        if (!run.format.isProtected) unprotected.push_back(run);
    });
    const std::u16string before = box->Text(start, length);
    for (const FormatRun& run : unprotected)
        (box->*convert)(run.start, run.length);
    if (box->Text(start, length) == before) return false;
    CommitBoxChange(session, selection.box);
    return true;
}

bool PutAtSelection(EditorSession& session, TextSelection& selection, std::u16string_view text,
                    const std::function<CharFormat(const CharFormat&)>& shape) {
    StyledText* box = EditableBox(session, selection);
    if (box == nullptr || HoldsProtectedText(*box, selection.start, selection.length)) {
        return false;
    }
    const CharFormat format = shape(TypingFormat(*box, selection.start, selection.length));
    const BoxTextChange change = MeasureBoxEdit(*box, selection.start, selection.length, text);
    box->Erase(selection.start, selection.length);
    box->Insert(selection.start, text, format);
    selection.start += text.size();
    selection.length = 0;
    CommitBoxChange(session, selection.box, change);
    return true;
}

CharFormat AsTyped(const CharFormat& format) {
    return format;
}

}  // namespace

bool ToggleBold(EditorSession& session, TextSelection& selection) {
    return ToggleAttribute(session, selection, &CharFormat::bold);
}

bool ToggleItalic(EditorSession& session, TextSelection& selection) {
    return ToggleAttribute(session, selection, &CharFormat::italic);
}

bool ToggleUnderline(EditorSession& session, TextSelection& selection) {
    return ToggleAttribute(session, selection, &CharFormat::underline);
}

bool ToggleSuperscript(EditorSession& session, TextSelection& selection) {
    StyledText* box = FormattableBox(session, selection);
    if (box == nullptr) return false;
    const int boxSize = session.preferences.FontSize[static_cast<std::size_t>(selection.box)];
    const bool raise = box->AllOf(selection.start, selection.length,
                                  [](const CharFormat& format) { return format.offset == 0; });
    return ApplyAndCommit(session, *box, selection, [raise, boxSize](CharFormat& format) {
        const int size = format.fontSize == 0 ? boxSize : format.fontSize;
        if (raise) {
            format.offset = kSuperscriptOffset;
            format.fontSize = std::max(1, size - kSuperscriptSizeChange);
        } else if (format.offset != 0) {
            format.offset = 0;
            const int lowered = size + kSuperscriptSizeChange;
            format.fontSize = lowered == boxSize ? 0 : lowered;
        }
    });
}

bool ToggleInter(EditorSession& session, TextSelection& selection, int style) {
    StyledText* box = EditableBox(session, selection);
    if (box == nullptr || style < 1 || style > 3) return false;
    if (selection.box != kMainTextBox) {
        session.window.ShowStatusError(
            session.Message("InterNotAllowed") + ": " +
            LabelCaption(session.window, TextBoxLabelName(selection.box)));
        return false;
    }
    if (session.preferences.SelectInter) WidenToParagraphs(*box, selection);
    if (selection.length == 0) {
        session.window.ShowStatusError(session.Message("SelectInter"));
        return false;
    }
    if (HoldsProtectedText(*box, selection.start, selection.length)) return false;
    const OleColour colour = InterColour(session.preferences, style);
    const bool inStyle =
        box->AllOf(selection.start, selection.length,
                   [colour](const CharFormat& format) { return format.colour == colour; });
    return ApplyAndCommit(session, *box, selection, [inStyle, colour](CharFormat& format) {
        format.colour = inStyle ? kNormalTextColour : colour;
        format.bold = !inStyle;
    });
}

bool ChangeToUpperCase(EditorSession& session, TextSelection& selection) {
    return ChangeCase(session, selection, &StyledText::ToUpper);
}

bool ChangeToLowerCase(EditorSession& session, TextSelection& selection) {
    return ChangeCase(session, selection, &StyledText::ToLower);
}

bool InsertDate(EditorSession& session, TextSelection& selection) {
    return PutAtSelection(session, selection, Utf8ToUtf16(FormatLongDate(Now())), AsTyped);
}

bool InsertTime(EditorSession& session, TextSelection& selection) {
    return PutAtSelection(session, selection, Utf8ToUtf16(FormatTimeHourMinuteSecond(Now())),
                          AsTyped);
}

bool InsertNonBreakingSpace(EditorSession& session, TextSelection& selection) {
    return PutAtSelection(session, selection, std::u16string(1, kNonBreakingMark),
                          NonBreakingMarkFormat);
}

}  // namespace tessarin
