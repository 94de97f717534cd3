#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tessarin {

// The two page layout programs that take tagged text. They share one algorithm and differ
// in their tag tables: InDesign names a typeface change, XPress toggles it.
enum class TaggedTextLayout { InDesign, XPress };

// The paragraph style marks that apply to one text box: the box's own style and the three
// intertitle styles of its form. A style the form does not define has an empty mark.
struct TaggedTextMarks {
    std::string box;
    std::array<std::string, 3> inter;
};

// The paragraph style mark of a style name: "<ParaStyle:" name ">" in InDesign,
// "@" name ":" in XPress.
std::string ParagraphStyleMark(TaggedTextLayout layout, const std::string& styleName);

// Turns the markup of one text box (notes, the TextBoxN tags, line ends and tabs already
// cut) into the layout program's tagged text, as UTF-8, with the box's own mark in front:
// the inline tags and entities become the program's tags by a fixed table in a fixed
// order, then a paragraph break right after the box's mark is dropped, the mark in front
// included (in InDesign, doubled breaks are first made single).
std::string TaggedBoxText(TaggedTextLayout layout, std::string_view markup,
                          const TaggedTextMarks& marks);

}  // namespace tessarin
