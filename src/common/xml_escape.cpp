#include "common/xml_escape.h"

#include <array>
#include <utility>

namespace tessarin {

namespace {

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    result.reserve(text.size());
    std::size_t start = 0;
    for (std::size_t found = text.find(from); found != std::string_view::npos;
         found = text.find(from, start)) {
        result.append(text, start, found - start);
        result.append(to);
        start = found + from.size();
    }
    result.append(text, start);
    return result;
}

}  // namespace

// One pass gives the same result as the five replacements in turn, because no replacement
// text holds a character that a later replacement looks for.
std::string XmlEscape(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size() + text.size() / 8);
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&apos;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string XmlUnescape(std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kEntities = {{
        {"&amp;", "&"},
        {"&quot;", "\""},
        {"&apos;", "'"},
        {"&lt;", "<"},
        {"&gt;", ">"},
    }};
    std::string result(text);
    for (const auto& [entity, character] : kEntities) {
        if (result.find('&') == std::string::npos) break;
        result = ReplaceAll(result, entity, character);
    }
    return result;
}

}  // namespace tessarin
