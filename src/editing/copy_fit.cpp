#include "editing/copy_fit.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "config/colours.h"
#include "config/numbered_name.h"
#include "config/story_section.h"
#include "editing/story_forms.h"
#include "editing/text_selection.h"
#include "story/char_count.h"
#include "story/word_count.h"

namespace tessarin {
namespace {

constexpr OleColour kWarningColour = 255;  // red, as 0x00BBGGRR
constexpr std::string_view kWordsFallbackLabel = "Words";

constexpr std::string_view kMenusThatNeedText[] = {
    "mnuFormatAutoTypography", "mnuSearchText",        "mnuSearchReplace",
    "mnuSearchNextOccurrence", "mnuToolsSpellChecker", "mnuToolsSynonyms",
    "mnuToolsWordStatistics"};

bool IsBox(int box) {
    return box >= 0 && box < kTextBoxCount;
}

std::int32_t Clamp32(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

const std::string& Caption(const EditorSession& session, std::string_view key) {
    return session.configuration.interface.Caption(key);
}

// The label for words: the caption that labels a story's words elsewhere too.
std::string WordsLabel(const EditorSession& session) {
    const std::string& caption = Caption(session, "NewsAllWordCount");
    return caption.empty() ? std::string(kWordsFallbackLabel) : caption;
}

// Where box stands against its limits. Without limits, low and high are meaningless.
struct BoxFit {
    bool limited = false;
    std::int64_t low = 0;
    std::int64_t high = 0;
    std::int64_t count = 0;

    bool TooMany() const { return count > high; }
    bool Fits() const { return low <= count && count <= high; }
};

std::int64_t AllowanceOf(const EditorSession& session, int box) {
    return box == kMainTextBox ? session.panel.imageAllowance : 0;
}

BoxFit FitOf(const EditorSession& session, int box) {
    const BoxLimits& limits = session.panel.limits[box];
    const std::int64_t allowance = AllowanceOf(session, box);
    return {limits.minimum != 0, limits.minimum - allowance, limits.maximum - allowance,
            session.story.counters[box].count};
}

std::string LimitsText(const BoxLimits& limits, std::int64_t allowance) {
    std::string text =
        "[" + std::to_string(limits.minimum) + "," + std::to_string(limits.maximum) + "]";
    if (allowance == 0) return text;
    return text + " -> [" + std::to_string(limits.minimum - allowance) + "," +
           std::to_string(limits.maximum - allowance) + "]";
}

// count / high as a whole percentage, halves rounded away from zero, computed exactly.
std::int64_t RoundedPercentage(std::int64_t count, std::int64_t high) {
    const std::int64_t numerator = std::abs(count) * 100;
    const std::int64_t denominator = std::abs(high);
    const std::int64_t rounded = (2 * numerator + denominator) / (2 * denominator);
    return (count < 0) != (high < 0) ? -rounded : rounded;
}

std::string WarningText(const EditorSession& session, int box, const BoxFit& fit) {
    const ControlState* label = session.window.FindControl(TextBoxLabelName(box));
    const std::string caption = label ? label->caption : std::string();
    const std::string message = fit.TooMany()
                                    ? ReplacePlaceholder(Caption(session, "TooMuchChars"),
                                                         std::to_string(fit.count - fit.high))
                                    : ReplacePlaceholder(Caption(session, "NotEnoughChars"),
                                                         std::to_string(fit.low - fit.count));
    return caption + ": " + message;
}

// When the pictures shorten the main box, its counter's tip says by how much and what the
// target becomes: "Total number of chars for photos = 800" line break "[1000,2000] ->
// [200,1200]".
std::string AllowanceTip(const EditorSession& session, int box, const BoxFit& fit) {
    const std::int64_t allowance = AllowanceOf(session, box);
    if (!fit.limited || allowance == 0) return {};
    return session.Message("ImagesCopyfit") + " = " + std::to_string(allowance) + "\n" +
           LimitsText(session.panel.limits[box], allowance);
}

void ShowCountAlone(ControlState& countLabel, std::int64_t count) {
    countLabel.caption = std::to_string(count);
    countLabel.checked = false;
}

void ShowTotal(EditorSession& session) {
    std::int64_t total = 0;
    for (const BoxCounters& counters : session.story.counters)
        total += counters.count;
    ControlState& label = session.window.Control(kTotalCountLabel);
    label.caption = Caption(session, "TotalChars") + "=" + std::to_string(total);
    label.checked = false;
}

void EnableMenusThatNeedText(EditorSession& session) {
    const bool anyText = std::any_of(session.story.boxes.begin(), session.story.boxes.end(),
                                     [](const StyledText& box) { return !box.Empty(); });
    for (std::string_view menu : kMenusThatNeedText)
        session.window.Control(menu).enabled = anyText;
}

void AfterCount(EditorSession& session, int box, ChangeOrigin origin) {
    UpdateCopyFit(session, box);
    ShowTotal(session);
    if (origin == ChangeOrigin::User) session.storyModified = true;
    EnableMenusThatNeedText(session);
}

// The range with the unit before it and the unit after it, where there are such units: a
// line break that an edit makes or undoes has one unit in the range and may have the other
// one beside it.
std::u16string WithNeighbours(const StyledText& text, std::size_t start, std::size_t length) {
    const std::size_t before = start > 0 ? 1 : 0;
    const std::size_t after = start + length < text.Length() ? 1 : 0;
    return text.Text(start - before, before + length + after);
}

}  // namespace

std::string CountLabelName(int box) {
    return NumberedName("lblNbTextBox", box);
}

std::string LimitsLabelName(int box) {
    return NumberedName("lblMinMaxTextBox", box);
}

std::string WriteLessIconName(int box) {
    return NumberedName("ImageWarningLess", box);
}

std::string WriteMoreIconName(int box) {
    return NumberedName("ImageWarningMore", box);
}

bool BoxTaggedInvisible(const WindowState& window, int box) {
    return TagHolds(window, TextBoxControlName(box), "invisible");
}

BoxTextChange MeasureBoxEdit(const StyledText& box, std::size_t start, std::size_t length,
                             std::u16string_view inserted) {
    start = std::min(start, box.Length());
    length = std::min(length, box.Length() - start);
    const std::u16string old = WithNeighbours(box, start, length);
    const std::size_t before = start > 0 ? 1 : 0;
    std::u16string fresh = old.substr(0, before);
    fresh.append(inserted).append(old, before + length);
    BoxTextChange change;
    change.lengthDelta =
        static_cast<std::int64_t>(inserted.size()) - static_cast<std::int64_t>(length);
    change.lineBreakDelta = CountLineBreaks(fresh) - CountLineBreaks(old);
    return change;
}

void BoxTextChanged(EditorSession& session, int box, const BoxTextChange& change,
                    ChangeOrigin origin) {
    if (!IsBox(box)) return;
    BoxCounters& counters = session.story.counters[box];
    counters.noteCharacters =
        Clamp32(std::int64_t{counters.noteCharacters} + change.noteCharacterDelta);
    counters.paragraphMarks =
        Clamp32(std::int64_t{counters.paragraphMarks} + change.paragraphMarkDelta);
    counters.count =
        Clamp32(std::int64_t{counters.count} + change.lengthDelta - 2 * change.lineBreakDelta -
                change.noteCharacterDelta - change.paragraphMarkDelta);
    AfterCount(session, box, origin);
}

std::optional<std::size_t> TypeText(EditorSession& session, int box, std::size_t position,
                                    std::u16string_view typed, std::size_t replacedLength) {
    TextSelection selection{box, position, replacedLength};
    StyledText* text = EditableBox(session, selection);
    if (text == nullptr) return std::nullopt;
    const bool allCaps = box < kAllCapsBoxCount && session.panel.allCaps[box];
    const std::u16string keyed = allCaps ? TypedInAllCaps(typed) : std::u16string(typed);

    // The anchors in the range stay, so the range's new text is measured where it stands.
    const std::u16string old = WithNeighbours(*text, selection.start, selection.length);
    const std::size_t oldLength = text->Length();
    const std::optional<std::size_t> caret =
        ReplaceKeepingProtected(*text, selection.start, selection.length, keyed);
    if (!caret) return std::nullopt;
    BoxTextChange change;
    change.lengthDelta =
        static_cast<std::int64_t>(text->Length()) - static_cast<std::int64_t>(oldLength);
    const auto newLength =
        static_cast<std::size_t>(static_cast<std::int64_t>(selection.length) + change.lengthDelta);
    change.lineBreakDelta =
        CountLineBreaks(WithNeighbours(*text, selection.start, newLength)) - CountLineBreaks(old);
    BoxTextChanged(session, box, change, ChangeOrigin::User);
    return caret;
}

void RecountBox(EditorSession& session, int box, ChangeOrigin origin) {
    if (!IsBox(box)) return;
    BoxCounters& counters = session.story.counters[box];
    counters.count = CountBoxCharacters(session.story.boxes[box], counters.noteCharacters,
                                        counters.paragraphMarks);
    AfterCount(session, box, origin);
}

void RecountAllBoxes(EditorSession& session) {
    for (int box = 0; box < kTextBoxCount; ++box) {
        BoxCounters& counters = session.story.counters[box];
        counters.count = CountBoxCharacters(session.story.boxes[box], counters.noteCharacters,
                                            counters.paragraphMarks);
        if (!BoxTaggedInvisible(session.window, box)) UpdateCopyFit(session, box);
    }
    ShowTotal(session);
    EnableMenusThatNeedText(session);
}

void UpdateCopyFit(EditorSession& session, int box) {
    if (!IsBox(box)) return;
    WindowState& window = session.window;
    ControlState& countLabel = window.Control(CountLabelName(box));
    ControlState& limitsLabel = window.Control(LimitsLabelName(box));
    ControlState& writeLess = window.Control(WriteLessIconName(box));
    ControlState& writeMore = window.Control(WriteMoreIconName(box));
    const BoxFit fit = FitOf(session, box);
    countLabel.toolTip = AllowanceTip(session, box, fit);

    if (!fit.limited) {
        if (session.preferences.TooMuchNotEnough) window.ClearStatus();
        limitsLabel.visible = writeLess.visible = writeMore.visible = false;
        ShowCountAlone(countLabel, fit.count);
        return;
    }
    limitsLabel.visible = true;
    limitsLabel.caption = LimitsText(session.panel.limits[box], AllowanceOf(session, box));
    if (fit.Fits()) {
        window.ClearStatus();
        writeLess.visible = writeMore.visible = false;
        ShowCountAlone(countLabel, fit.count);
        return;
    }
    writeLess.visible = fit.TooMany();
    writeMore.visible = !fit.TooMany();
    if (session.preferences.TooMuchNotEnough)
        window.Status() = {WarningText(session, box, fit), false};
    countLabel.caption = std::to_string(fit.count);
    if (fit.high != 0) {
        countLabel.caption += "  [" + std::to_string(RoundedPercentage(fit.count, fit.high)) + "%]";
    }
    countLabel.checked = false;
}

OleColour BoxLabelColour(const EditorSession& session, int box) {
    if (!IsBox(box)) return kButtonText;
    for (const std::string& icon : {WriteLessIconName(box), WriteMoreIconName(box)}) {
        const ControlState* control = session.window.FindControl(icon);
        if (control && control->visible) return kWarningColour;
    }
    return kButtonText;
}

void ShowBoxWarning(EditorSession& session, int box) {
    if (!IsBox(box) || !session.preferences.TooMuchNotEnough) return;
    const BoxFit fit = FitOf(session, box);
    if (!fit.limited || fit.Fits()) return;
    session.window.Status() = {WarningText(session, box, fit), false};
}

void ShowImageAllowanceParts(EditorSession& session) {
    const std::int32_t allowance = session.panel.imageAllowance;
    const int form = session.panel.formInForce;
    const auto& forms = session.configuration.forms;
    if (allowance == 0 || form < 0 || form >= static_cast<int>(forms.size())) return;
    std::string parts;
    std::size_t counted = 0;
    for (const ImageSizeRow& row : session.configuration.imageSizes) {
        if (counted == session.story.images.size()) break;
        if (row.formName != forms[form].name) continue;
        if (counted++ > 0) parts += "; ";
        parts += std::to_string(row.size);
    }
    session.window.Status() = {
        std::to_string(allowance) + " = " + session.Message("ImagesLabel") + ": " + parts, false};
}

void ToggleBoxWords(EditorSession& session, int box) {
    if (!IsBox(box)) return;
    ControlState& label = session.window.Control(CountLabelName(box));
    if (label.checked) {
        UpdateCopyFit(session, box);
        return;
    }
    label.caption =
        std::to_string(CountStoryWords(session.story.boxes[box])) + ": " + WordsLabel(session);
    label.checked = true;
}

void ToggleTotalWords(EditorSession& session) {
    ControlState& label = session.window.Control(kTotalCountLabel);
    if (label.checked) {
        ShowTotal(session);
        return;
    }
    std::int64_t words = 0;
    for (const StyledText& box : session.story.boxes)
        words += CountStoryWords(box);
    label.caption = std::to_string(words) + ": " + WordsLabel(session);
    label.checked = true;
}

std::string SelectionCountersText(const EditorSession& session, int box, std::size_t start,
                                  std::size_t length) {
    if (!IsBox(box)) return {};
    const std::u16string selection = session.story.boxes[box].Text(start, length);
    if (selection.empty()) return {};
    const std::int64_t characters =
        static_cast<std::int64_t>(selection.size()) - 2 * CountLineBreaks(selection);
    return Caption(session, "SelectedChars") + std::to_string(characters) + " / " +
           Caption(session, "SelectedWords") + std::to_string(CountWords(selection));
}

void ResetCopyFitDisplay(EditorSession& session) {
    for (int box = 0; box < kTextBoxCount; ++box) {
        WindowState& window = session.window;
        ShowCountAlone(window.Control(CountLabelName(box)), session.story.counters[box].count);
        window.Control(LimitsLabelName(box)).visible = false;
        window.Control(WriteLessIconName(box)).visible = false;
        window.Control(WriteMoreIconName(box)).visible = false;
    }
    ShowTotal(session);
    EnableMenusThatNeedText(session);
}

}  // namespace tessarin
