#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "story/story_markup.h"
#include "text/styled_text.h"

namespace tessarin {

// Reading story markup into formatted text: the tags are turned into format bits kept per
// UTF-16 unit, and the text becomes a StyledText once every tag has been read. Both the
// story reader and the rescue of a broken story file read this way.

enum MarkupFormat : std::uint16_t {
    kMarkupBold = 1 << 0,
    kMarkupItalic = 1 << 1,
    kMarkupUnderline = 1 << 2,
    kMarkupNote = 1 << 3,
    kMarkupNonBreakingMark = 1 << 4,
    kMarkupInter1 = 1 << 5,
    kMarkupInter2 = 1 << 6,
    kMarkupInter3 = 1 << 7,
    kMarkupSuperscript = 1 << 8,
};

// Text units, each with its format bits.
struct FormattedUnits {
    std::u16string characters;
    std::vector<std::uint16_t> formats;

    void Append(std::u16string_view text, std::uint16_t format) {
        characters += text;
        formats.insert(formats.end(), text.size(), format);
    }
};

// Appends the text between two tags with its entities undone. No entity can reach across a
// tag, so each stretch is unescaped on its own.
void AppendUnescaped(std::u16string_view text, std::uint16_t format, FormattedUnits& units);

// Removes each paired opening and closing tag (as PairTags pairs them) and gives style to
// the units between them.
void ApplyTagPairs(std::u16string_view opening, std::u16string_view closing, std::uint16_t style,
                   FormattedUnits& units);

// The intertitle styles <inter1> to <inter3>, paired in that order.
void ApplyInterStylePairs(FormattedUnits& units);

// The units as a styled text: bold, italic, underline, a note anchor's protected wavy
// highlight, the grey of a non-breaking space's mark, the colour of an intertitle style (the
// last of styles 1, 2, 3 that applies) and the raised, smaller superscript.
StyledText ToStyledText(const FormattedUnits& units, const MarkupSettings& settings,
                        std::int32_t fontSize);

}  // namespace tessarin
