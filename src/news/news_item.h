#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/xml_document.h"

namespace tessarin {

// What the news list shows of one agency item, read from its NewsML document. A missing
// element leaves its field empty (or 0).
struct NewsEntry {
    std::string rawDate;        // NewsEnvelope/DateAndTime: YYYYMMDDTHHMMSS, with or without zone
    std::int16_t priority = 0;  // NewsEnvelope/Priority FormalName
    std::string status;         // NewsItem/NewsManagement/Status FormalName
    std::int16_t revision = 0;  // NewsItem/Identification/NewsIdentifier/RevisionId
    std::string headline;       // HeadLine of the news lines
    std::string dateLine;
    std::string slug;
    std::string subject;  // DescriptiveMetadata/SubjectCode/Subject FormalName
    std::string words;    // ContentItem/Characteristics/Property[@FormalName='Words'] Value
};

// The fields of the item that document holds (its root element is NewsML).
NewsEntry ReadNewsEntry(const XmlDocument& document);

// The number that a NewsML value holds, as the 16-bit integer of the list: its leading digits
// (and sign), 0 when there are none, clamped to the 16-bit range.
std::int16_t NewsNumber(std::string_view value);

// The date of a raw item date as the list shows it: day, month and year in the order of the
// short date (DateOrder: 0 month first, 1 day first, 2 year first), joined by "/"; empty when
// the raw date is shorter than a date.
std::string ShownNewsDate(std::string_view rawDate, int dateOrder);

// "hh:mm" of a raw item date; empty when it holds no time.
std::string ShownNewsTime(std::string_view rawDate);

// The first node at path (relative to a NewsComponent) in the item's news components, looking
// at NewsItem/NewsComponent first, then down through the nested NewsComponent levels in
// document order, as agencies nest them; missing when no level has one.
XmlNode FindInNewsComponents(const XmlNode& newsItem, std::string_view path);

}  // namespace tessarin
