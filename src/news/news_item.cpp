#include "news/news_item.h"

#include <algorithm>
#include <limits>

#include "common/number_parse.h"

namespace tessarin {
namespace {

XmlNode FindBelow(const XmlNode& component, std::string_view path) {
    if (const XmlNode found = component.SelectSingleNode(path)) return found;
    for (const XmlNode& inner : component.SelectNodes("NewsComponent")) {
        if (const XmlNode found = FindBelow(inner, path)) return found;
    }
    return {};
}

// Day, month and year of a raw date, or nothing when it is too short.
struct DateParts {
    std::string_view year, month, day;
};

bool SplitDate(std::string_view raw, DateParts& parts) {
    if (raw.size() < 8) return false;
    parts = {raw.substr(0, 4), raw.substr(4, 2), raw.substr(6, 2)};
    return true;
}

}  // namespace

XmlNode FindInNewsComponents(const XmlNode& newsItem, std::string_view path) {
    for (const XmlNode& component : newsItem.SelectNodes("NewsComponent")) {
        if (const XmlNode found = FindBelow(component, path)) return found;
    }
    return {};
}

std::int16_t NewsNumber(std::string_view value) {
    const std::int32_t number = ParseLeadingInteger(value);
    return static_cast<std::int16_t>(
        std::clamp<std::int32_t>(number, std::numeric_limits<std::int16_t>::min(),
                                 std::numeric_limits<std::int16_t>::max()));
}

NewsEntry ReadNewsEntry(const XmlDocument& document) {
    const XmlNode root = document.DocumentElement();
    const XmlNode item = root.SelectSingleNode("NewsItem");
    NewsEntry entry;
    entry.rawDate = root.SelectSingleNode("NewsEnvelope/DateAndTime").Text();
    entry.priority =
        NewsNumber(root.SelectSingleNode("NewsEnvelope/Priority").Attribute("FormalName"));
    entry.status = item.SelectSingleNode("NewsManagement/Status").Attribute("FormalName");
    entry.revision =
        NewsNumber(item.SelectSingleNode("Identification/NewsIdentifier/RevisionId").Text());
    const XmlNode lines = FindInNewsComponents(item, "NewsLines");
    entry.headline = lines.SelectSingleNode("HeadLine").Text();
    entry.dateLine = lines.SelectSingleNode("DateLine").Text();
    entry.slug = lines.SelectSingleNode("SlugLine").Text();
    entry.subject = FindInNewsComponents(item, "DescriptiveMetadata/SubjectCode/Subject")
                        .Attribute("FormalName");
    for (const XmlNode& property :
         FindInNewsComponents(item, "ContentItem/Characteristics").SelectNodes("Property")) {
        if (property.Attribute("FormalName") == "Words") {
            entry.words = property.Attribute("Value");
            break;
        }
    }
    return entry;
}

std::string ShownNewsDate(std::string_view rawDate, int dateOrder) {
    DateParts date;
    if (!SplitDate(rawDate, date)) return {};
    const auto join = [](std::string_view a, std::string_view b, std::string_view c) {
        return std::string(a) + "/" + std::string(b) + "/" + std::string(c);
    };
    switch (dateOrder) {
        case 1:
            return join(date.day, date.month, date.year);
        case 2:
            return join(date.year, date.month, date.day);
        default:
            return join(date.month, date.day, date.year);
    }
}

std::string ShownNewsTime(std::string_view rawDate) {
    if (rawDate.size() < 13 || rawDate[8] != 'T') return {};
    return std::string(rawDate.substr(9, 2)) + ":" + std::string(rawDate.substr(11, 2));
}

}  // namespace tessarin
