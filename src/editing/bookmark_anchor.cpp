#include "editing/bookmark_anchor.h"

#include <cstdint>

namespace tessarin {
namespace {

bool IsProtected(const CharFormat& format) {
    return format.isProtected;
}

}  // namespace

CharFormat AnchorFormat(OleColour bookmarksColour) {
    CharFormat format;
    format.isProtected = true;
    format.waveUnderline = true;
    format.highlighted = true;
    format.highlight = bookmarksColour;
    return format;
}

void InsertAnchor(StyledText& text, std::size_t position, std::u16string_view title,
                  OleColour bookmarksColour) {
    // The anchor keeps the box's font, but none of the attributes of the text around it.
    CharFormat format = AnchorFormat(bookmarksColour);
    if (!text.Empty()) {
        const CharFormat around = text.FormatAt(position > 0 ? position - 1 : 0);
        format.fontName = around.fontName;
        format.fontSize = around.offset == 0 ? around.fontSize : 0;
    }
    text.Insert(position, title, format);
}

std::optional<std::size_t> FindAnchor(const StyledText& text, std::u16string_view title) {
    for (std::int64_t hit = text.Find(title, 0, true, false); hit >= 0;) {
        const auto position = static_cast<std::size_t>(hit);
        if (text.AllOf(position, title.size(), IsProtected)) return position;
        hit = text.Find(title, position + 1, true, false);
    }
    return std::nullopt;
}

std::optional<TextSelection> FindAnchorInStory(const StoryRecord& story,
                                               std::u16string_view title) {
    for (int box = 0; box < kTextBoxCount; ++box) {
        const std::optional<std::size_t> position =
            FindAnchor(story.boxes[static_cast<std::size_t>(box)], title);
        if (position) return TextSelection{box, *position, title.size()};
    }
    return std::nullopt;
}

}  // namespace tessarin
