#include "news/news_item_text.h"

#include "common/text_replace.h"
#include "config/text_trim.h"
#include "news/news_item.h"

namespace tessarin {
namespace {

// The body node of the item: nitf's body.content, else the DataContent, or the body of the
// XHTML document it holds; a first child "head" is dropped.
XmlNode BodyOf(const XmlNode& item) {
    XmlNode body = FindInNewsComponents(item, "ContentItem/DataContent/nitf/body/body.content");
    if (!body) body = FindInNewsComponents(item, "ContentItem/DataContent");
    if (const XmlNode html = body.SelectSingleNode("html")) {
        const XmlNode inner = html.SelectSingleNode("body");
        body = inner ? inner : html;
    }
    const std::vector<XmlNode> children = body.ChildElements();
    if (!children.empty() && children.front().Name() == "head") {
        XmlNode head = children.front();
        head.Remove();
    }
    return body;
}

// The element's content as serialised, without its own start and end tags.
std::string InnerXml(const XmlNode& node) {
    const std::string xml = node.Xml();
    const std::size_t open = xml.find('>');
    if (open == std::string::npos || (open > 0 && xml[open - 1] == '/')) return {};
    const std::size_t close = xml.rfind("</");
    if (close == std::string::npos || close < open) return {};
    return xml.substr(open + 1, close - open - 1);
}

// Markup that is left after the paragraphs went (inline elements, wrappers) is dropped and
// the entities of serialised text are read back, in one pass so that "&amp;lt;" stays "&lt;".
std::string WithoutTagsAndEntities(std::string_view xml) {
    static constexpr std::pair<std::string_view, std::string_view> kEntities[] = {
        {"&amp;", "&"},   {"&lt;", "<"},   {"&gt;", ">"},
        {"&quot;", "\""}, {"&apos;", "'"}, {"&#13;", "\r"}};
    std::string text;
    text.reserve(xml.size());
    for (std::size_t i = 0; i < xml.size();) {
        if (xml[i] == '<') {
            const std::size_t end = xml.find('>', i);
            i = end == std::string_view::npos ? xml.size() : end + 1;
            continue;
        }
        bool replaced = false;
        if (xml[i] == '&') {
            for (const auto& [entity, character] : kEntities) {
                if (xml.substr(i, entity.size()) == entity) {
                    text += character;
                    i += entity.size();
                    replaced = true;
                    break;
                }
            }
        }
        if (!replaced) text += xml[i++];
    }
    return text;
}

std::string BodyText(XmlNode body) {
    std::string xml = InnerXml(body);
    for (std::string_view gone : {"<body.content>", "</body.content>", "\t", "\r", "\n", "<p>"})
        ReplaceAllInText(xml, gone, "");
    ReplaceAllInText(xml, "</p>", "\r\n");
    ReplaceAllInText(xml, "<p/>", "\r\n");
    std::string text = WithoutTagsAndEntities(xml);
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n'))
        text.pop_back();
    return std::string(TrimWhitespace(text));
}

std::string ParseErrorText(std::string_view head, std::string_view lineWord,
                           const XmlParseError& error, std::string_view source) {
    return "Parsing error:" + std::string(head) + ", " + std::string(lineWord) + ": " +
           std::to_string(error.line) + ", position: " + std::to_string(error.linePosition) + " " +
           std::string(source) + " " + error.reason;
}

}  // namespace

NewsItemView ReadNewsItemView(XmlDocument& document) {
    const XmlNode item = document.DocumentElement().SelectSingleNode("NewsItem");
    NewsItemView view;
    view.id = item.SelectSingleNode("Identification/NewsIdentifier/NewsItemId").Text();
    for (const XmlNode& property :
         FindInNewsComponents(item, "DescriptiveMetadata/Location").SelectNodes("Property")) {
        if (!view.location.empty()) view.location += ", ";
        view.location += property.Attribute("FormalName") + "=" + property.Attribute("Value");
    }
    const XmlNode body = BodyOf(item);
    for (XmlNode org : body.SelectNodes("p/org")) {
        view.organisations.push_back(org.Attribute("idsrc") + "=" + org.Attribute("value"));
        for (const XmlNode& code : org.SelectNodes("alt-code"))
            view.organisations.push_back(code.Attribute("idsrc") + "=" + code.Attribute("value"));
        org.Remove();
    }
    view.text = BodyText(body);
    return view;
}

std::string NewsScanParseError(const std::string& name, const XmlParseError& error) {
    return ParseErrorText(name, "Ligne", error, TrimWhitespace(error.sourceText));
}

std::string NewsShowParseError(const std::string& path, const XmlParseError& error) {
    return ParseErrorText(path, "Line", error, error.sourceText);
}

}  // namespace tessarin
