#include "export/tagged_story_parts.h"

#include "export/newsml_box_markup.h"

namespace tessarin {

std::string ChildText(const XmlNode& node, std::string_view name) {
    return node.SelectSingleNode(name).Text();
}

std::string CutEveryNote(std::string_view text) {
    constexpr std::string_view kOpen = "<note>";
    constexpr std::string_view kClose = "</note>";
    std::string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    while (true) {
        const std::size_t open = text.find(kOpen, copied);
        if (open == std::string_view::npos) break;
        const std::size_t close = text.find(kClose, open + kOpen.size());
        if (close == std::string_view::npos) break;
        result.append(text.substr(copied, open - copied));
        copied = close + kClose.size();
    }
    result.append(text.substr(copied));
    return result;
}

std::string BoxMarkupOnOneLine(const XmlNode& box, int index) {
    std::string markup = CutEveryNote(SerialisedWithoutAttributes(box));
    RemoveBoxTags(markup, index);
    RemoveLineEndsAndTabs(markup);
    return markup;
}

}  // namespace tessarin
