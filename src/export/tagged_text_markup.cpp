#include "export/tagged_text_markup.h"

#include <string_view>
#include <utility>
#include <vector>

#include "export/newsml_box_markup.h"

namespace tessarin {
namespace {

using Row = std::pair<std::string_view, std::string>;

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

// The character rows shared by both tables: the special letters in UTF-8.
void AppendLetterRows(std::vector<Row>& rows) {
    rows.emplace_back("<euro/>", "\xE2\x82\xAC");
    rows.emplace_back("<oe/>", "\xC5\x93");
    rows.emplace_back("<OE/>", "\xC5\x92");
}

void AppendIntertitleRows(std::vector<Row>& rows, const TaggedTextMarks& marks) {
    rows.emplace_back("<inter1>", marks.inter[0]);
    rows.emplace_back("<inter2>", marks.inter[1]);
    rows.emplace_back("<inter3>", marks.inter[2]);
    const std::string closing = std::string(kCrLf) + marks.box;
    rows.emplace_back("</inter1>", closing);
    rows.emplace_back("</inter2>", closing);
    rows.emplace_back("</inter3>", closing);
}

std::vector<Row> InDesignRows(const TaggedTextMarks& marks) {
    std::vector<Row> rows = {
        {"<tab/>", "\t"},
        {"<p>", ""},
        {"<p/>", std::string(kCrLf)},
        {"<b><i>", "<cTypeface:Bold Italic>"},
        {"</i></b>", "<cTypeface:>"},
        {"<b>", "<cTypeface:Bold>"},
        {"</b>", "<cTypeface:>"},
        {"<i>", "<cTypeface:Italic>"},
        {"</i>", "<cTypeface:>"},
        {"<u>", "<cUnderline:1>"},
        {"</u>", "<cUnderline:>"},
    };
    AppendIntertitleRows(rows, marks);
    rows.emplace_back("<sup>", "<cPosition:Superscript>");
    rows.emplace_back("</sup>", "<cPosition:>");
    AppendLetterRows(rows);
    rows.emplace_back("&gt;", "\\>");
    rows.emplace_back("&lt;", "\\<");
    rows.emplace_back(kNoBreakSpace, "<0x00A0>");
    return rows;
}

// XPress tags are toggles: an opening and a closing tag give the same text.
std::vector<Row> XPressRows(const TaggedTextMarks& marks) {
    std::vector<Row> rows = {
        {"<p>", ""},
        {"<p/>", std::string(kCrLf)},
        {"<tab/>", "\t"},
        {"<b><i>", "<B><I>"},
        {"</i></b>", "<I><B>"},
        {"<b>", "<B>"},
        {"</b>", "<B>"},
        {"<i>", "<I>"},
        {"</i>", "<I>"},
        {"<u>", "<U>"},
        {"</u>", "<U>"},
    };
    AppendIntertitleRows(rows, marks);
    rows.emplace_back("<sup>", "<V>");
    rows.emplace_back("</sup>", "<V>");
    AppendLetterRows(rows);
    rows.emplace_back("&gt;", "<\\>>");
    rows.emplace_back("&lt;", "<\\<>");
    rows.emplace_back(kNoBreakSpace, "<\\!p>");
    return rows;
}

}  // namespace

std::string ParagraphStyleMark(TaggedTextLayout layout, const std::string& styleName) {
    return layout == TaggedTextLayout::InDesign ? "<ParaStyle:" + styleName + ">"
                                                : "@" + styleName + ":";
}

std::string TaggedBoxText(TaggedTextLayout layout, std::string_view markup,
                          const TaggedTextMarks& marks) {
    std::string text(markup);
    const std::vector<Row> rows =
        layout == TaggedTextLayout::InDesign ? InDesignRows(marks) : XPressRows(marks);
    for (const auto& [from, to] : rows)
        ReplaceAllInText(text, from, to);
    if (layout == TaggedTextLayout::InDesign) ReplaceAllInText(text, "\r\n\r\n", kCrLf);
    // The box's own mark followed by a break: the break goes, also in front of the text, so
    // that a box opening on an empty paragraph starts right after its mark. Without a mark
    // every break of the box goes, and its paragraphs run together.
    text.insert(0, marks.box);
    ReplaceAllInText(text, marks.box + std::string(kCrLf), marks.box);
    return text;
}

}  // namespace tessarin
