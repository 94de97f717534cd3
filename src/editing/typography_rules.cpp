#include "editing/typography_rules.h"

#include <cstdint>
#include <string_view>
#include <utility>

#include "editing/copy_fit.h"
#include "editing/non_breaking_mark.h"
#include "editing/text_selection.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

constexpr std::u16string_view kMarkedPunctuation = u":;!?%";

bool Protected(const StyledText& text, std::size_t position) {
    return text.FormatAt(position).isProtected;
}

std::size_t Position(std::int64_t hit) {
    return static_cast<std::size_t>(hit);
}

// Each run of blanks shrinks to one blank; runs inside an anchor stay.
bool RemoveDuplicateSpaces(StyledText& text) {
    bool changed = false;
    std::int64_t hit = text.Find(u"  ", 0, true, false);
    while (hit >= 0) {
        const std::size_t position = Position(hit);
        if (HoldsProtectedText(text, position, 2)) {
            hit = text.Find(u"  ", position + 1, true, false);
            continue;
        }
        text.Erase(position + 1, 1);
        changed = true;
        hit = text.Find(u"  ", position, true, false);
    }
    return changed;
}

// The character before each hit of punctuation becomes a mark, or a mark comes before it.
bool MarkBeforePunctuation(StyledText& text, char16_t punctuation) {
    bool changed = false;
    const std::u16string_view what(&punctuation, 1);
    std::int64_t hit = text.Find(what, 0, true, false);
    while (hit >= 0) {
        std::size_t next = Position(hit) + 1;
        const std::size_t before = Position(hit) - 1;
        if (hit > 0 && text.CharAt(before) != kNonBreakingMark && !Protected(text, before) &&
            !Protected(text, before + 1)) {
            if (text.CharAt(before) == u' ') {
                PutNonBreakingMark(text, before, 1);
            } else {
                PutNonBreakingMark(text, before + 1, 0);
                ++next;
            }
            changed = true;
        }
        hit = text.Find(what, next, true, false);
    }
    return changed;
}

// Double quotes alternate « and », from « on, across the whole box.
bool AlternateQuotes(StyledText& text) {
    bool changed = false;
    bool closing = false;
    std::int64_t hit = text.Find(u"\"", 0, true, false);
    while (hit >= 0) {
        const std::size_t position = Position(hit);
        if (!Protected(text, position)) {
            const char16_t quote = closing ? kClosingQuote : kOpeningQuote;
            text.Replace(position, 1, std::u16string_view(&quote, 1));
            closing = !closing;
            changed = true;
        }
        hit = text.Find(u"\"", position + 1, true, false);
    }
    return changed;
}

// The character at neighbour, beside a quotation mark, becomes a mark, or a mark goes at
// insertAt.
bool MarkBesideQuote(StyledText& text, std::size_t neighbour, std::size_t insertAt) {
    if (text.CharAt(neighbour) == kNonBreakingMark || Protected(text, neighbour)) return false;
    if (text.CharAt(neighbour) == u' ') {
        PutNonBreakingMark(text, neighbour, 1);
    } else {
        PutNonBreakingMark(text, insertAt, 0);
    }
    return true;
}

bool MarkInsideQuotes(StyledText& text) {
    bool changed = false;
    for (std::int64_t hit = text.Find(u"\u00AB", 0, true, false); hit >= 0;) {
        const std::size_t position = Position(hit);
        if (position + 1 < text.Length() && !Protected(text, position)) {
            changed |= MarkBesideQuote(text, position + 1, position + 1);
        }
        hit = text.Find(u"\u00AB", position + 1, true, false);
    }
    for (std::int64_t hit = text.Find(u"\u00BB", 0, true, false); hit >= 0;) {
        std::size_t position = Position(hit);
        if (position > 0 && !Protected(text, position) &&
            MarkBesideQuote(text, position - 1, position)) {
            changed = true;
            if (text.CharAt(position) != kClosingQuote) ++position;
        }
        hit = text.Find(u"\u00BB", position + 1, true, false);
    }
    return changed;
}

}  // namespace

TypographySwitches TypographySwitchesOf(const Preferences& preferences) {
    return {preferences.FrenchQuotationMarks, preferences.NonBreakingSpaces,
            preferences.RemoveDuplicateSpaces};
}

bool WantsMarkBefore(char16_t unit) {
    return kMarkedPunctuation.find(unit) != std::u16string_view::npos;
}

void PutNonBreakingMark(StyledText& text, std::size_t position, std::size_t length) {
    const CharFormat format = NonBreakingMarkFormat(TypingFormat(text, position, length));
    text.Erase(position, length);
    text.Insert(position, std::u16string_view(&kNonBreakingMark, 1), format);
}

bool ApplyTypography(StyledText& text, const TypographySwitches& switches) {
    bool changed = false;
    if (switches.removeDuplicateSpaces) changed |= RemoveDuplicateSpaces(text);
    if (switches.nonBreakingSpaces) {
        for (char16_t punctuation : kMarkedPunctuation) {
            changed |= MarkBeforePunctuation(text, punctuation);
        }
    }
    if (switches.frenchQuotationMarks) changed |= AlternateQuotes(text);
    if (switches.nonBreakingSpaces) changed |= MarkInsideQuotes(text);
    return changed;
}

bool RunAutoTypography(EditorSession& session) {
    const TypographySwitches switches = TypographySwitchesOf(session.preferences);
    bool changed = false;
    for (int box = 0; box < kTextBoxCount; ++box) {
        TextSelection whole{box, 0, 0};
        StyledText* text = EditableBox(session, whole);
        if (text == nullptr || text->Empty()) continue;
        StyledText result = *text;
        if (!ApplyTypography(result, switches)) continue;
        // The box as it was is a step too, so that one undo brings it back.
        RecordUndo(session, box);
        *text = std::move(result);
        RecountBox(session, box, ChangeOrigin::User);
        RecordUndo(session, box);
        changed = true;
    }
    return changed;
}

}  // namespace tessarin
