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

// Turns the markup of one text box (notes and the TextBoxN tags already cut) into the
// layout program's tagged text, as UTF-8: line ends and tabs of the serialised form go,
// the inline tags and entities become the program's tags by a fixed table in a fixed
// order, and a paragraph break right after the box's own mark is dropped (in InDesign,
// doubled breaks are first made single). The box's mark in front is the caller's.
std::string TaggedBoxText(TaggedTextLayout layout, std::string_view markup,
                          const TaggedTextMarks& marks);

}  // namespace tessarin
