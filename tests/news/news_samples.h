#pragma once

#include <string>
#include <string_view>

namespace tessarin::testing {

// NewsML items in the shapes that agencies send, written for the tests (the agencies are
// invented).

struct SampleItem {
    std::string date = "20260307T091500+0100";
    std::string priority = "4";
    std::string status = "Usable";
    std::string headline = "Harbour reopens";
    std::string body = "<p>First paragraph.</p><p>Second paragraph.</p>";
};

// One NewsComponent with NewsLines, metadata and an nitf body.
inline std::string NitfItem(const SampleItem& item) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE NewsML SYSTEM "http://127.0.0.1:9/dtd/NewsML_1.2.dtd">
<NewsML>
	<NewsEnvelope><DateAndTime>)" +
           item.date + R"(</DateAndTime><Priority FormalName=")" + item.priority +
           R"("/></NewsEnvelope>
	<NewsItem>
		<Identification><NewsIdentifier><NewsItemId>NRD-0042</NewsItemId><RevisionId>2</RevisionId></NewsIdentifier></Identification>
		<NewsManagement><Status FormalName=")" +
           item.status + R"("/></NewsManagement>
		<NewsComponent>
			<NewsLines><HeadLine>)" +
           item.headline +
           R"(</HeadLine><DateLine>Tromsø</DateLine><SlugLine>harbour</SlugLine></NewsLines>
			<DescriptiveMetadata><SubjectCode><Subject FormalName="04000000"/></SubjectCode>
				<Location><Property FormalName="Country" Value="NOR"/><Property FormalName="City" Value="Tromsø"/></Location>
			</DescriptiveMetadata>
			<ContentItem><Characteristics><Property FormalName="Words" Value="57"/></Characteristics>
				<DataContent><nitf><body><body.content>)" +
           item.body + R"(</body.content></body></nitf></DataContent>
			</ContentItem>
		</NewsComponent>
	</NewsItem>
</NewsML>
)";
}

}  // namespace tessarin::testing
