#include "news/news_show.h"

#include "common/utf8.h"

namespace tessarin {

ShownNewsItem ShowNewsItem(const std::filesystem::path& item) {
    ShownNewsItem shown;
    XmlDocument document;
    if (!document.LoadFile(item)) {
        shown.parseError =
            NewsShowParseError(item.string(), document.ParseError().value_or(XmlParseError{}));
        return shown;
    }
    shown.read = true;
    shown.view = ReadNewsItemView(document);
    shown.log = ReadNewsLog(item);
    shown.state = CopyStateOf(shown.log, Utf8ToUtf16(shown.view.text).size());
    return shown;
}

}  // namespace tessarin
