#include "export/newsml_box_markup.h"

namespace tessarin {
namespace {

constexpr std::string_view kNoteOpen = "<note>";
constexpr std::string_view kNoteClose = "</note>";

// The end of the start tag of serialised element text: the first ">" outside an attribute
// value (values are in double quotes, which they never hold themselves).
std::size_t StartTagEnd(std::string_view xml) {
    bool inValue = false;
    for (std::size_t at = 0; at < xml.size(); ++at) {
        if (xml[at] == '"') {
            inValue = !inValue;
        } else if (xml[at] == '>' && !inValue) {
            return at;
        }
    }
    return std::string_view::npos;
}

}  // namespace

std::string SerialisedWithoutAttributes(const XmlNode& element) {
    const std::string xml = element.Xml();
    const std::size_t end = StartTagEnd(xml);
    if (end == std::string::npos) return xml;
    const bool empty = end > 0 && xml[end - 1] == '/';
    std::string result = "<" + element.Name() + (empty ? "/>" : ">");
    result.append(xml, end + 1, std::string::npos);
    return result;
}

// Works in the coordinates of the original text: after a cut, the text from the search
// position on is the original text after the closing tag, so every later search runs over
// original text. The closing tag found last is kept while it still lies ahead, so that
// opening tags without a closing one cost no second scan.
std::string CutNotes(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    std::size_t searchFrom = 0;
    std::size_t close = 0;
    bool closeKnown = false;
    for (std::size_t open = text.find(kNoteOpen); open != std::string_view::npos;
         open = text.find(kNoteOpen, searchFrom)) {
        if (!closeKnown || (close != std::string_view::npos && close < open)) {
            close = text.find(kNoteClose, open);
            closeKnown = true;
        }
        if (close != std::string_view::npos && close > open + kNoteOpen.size()) {
            result.append(text.substr(copied, open - copied));
            copied = close + kNoteClose.size();
            searchFrom = copied + kNoteOpen.size();
        } else {
            searchFrom = open + kNoteOpen.size();
        }
    }
    result.append(text.substr(copied));
    return result;
}

void RemoveBoxTags(std::string& markup, int index) {
    const std::string name = "TextBox" + std::to_string(index);
    ReplaceAllInText(markup, "<" + name + ">", "");
    ReplaceAllInText(markup, "</" + name + ">", "");
    ReplaceAllInText(markup, "<" + name + "/>", "");
}

void RemoveLineEndsAndTabs(std::string& markup) {
    std::erase_if(markup, [](char c) { return c == '\r' || c == '\n' || c == '\t'; });
}

std::string BoxMarkupWithoutFrame(const XmlNode& box, int index) {
    std::string markup = CutNotes(SerialisedWithoutAttributes(box));
    RemoveBoxTags(markup, index);
    return markup;
}

}  // namespace tessarin
