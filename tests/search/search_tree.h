#pragma once

#include <string>
#include <string_view>

namespace tessarin::testing {

// A small story file in UTF-8: the metadata rows given, one text box, and one image whose
// caption, credit and keywords are given.
inline std::string MakeStoryFile(std::string_view publication, std::string_view body,
                                 std::string_view caption = "", std::string_view credit = "",
                                 std::string_view keywords = "") {
    std::string story =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n"
        "<Story AppName=\"Tessarin\" AppVersion=\"3.2.1\">\r\n<Metadata>\r\n"
        "<CreationDate Name=\"Creation date\">01/02/2025</CreationDate>"
        "<CreationTime>08:15</CreationTime>\r\n"
        "<LastSaveDate Name=\"Last save date\">20/02/2025</LastSaveDate>"
        "<LastSaveTime>09:30</LastSaveTime>\r\n"
        "<LastSaveAuthor>Jean Dupont</LastSaveAuthor>\r\n"
        "<Publication Name=\"Publication\">";
    story += publication;
    story += "</Publication>\r\n</Metadata>\r\n<Body>\r\n<TextBox6 CharCount=\"";
    story += std::to_string(body.size());
    story += "\" WordCount=\"1\" Name=\"Text\">";
    story += body;
    story += "</TextBox6>\r\n</Body>\r\n";
    if (!caption.empty() || !credit.empty() || !keywords.empty()) {
        story += "<Images>\r\n<ImageBag>\r\n<Image href=\"file:///photos/a.jpg\"/>\r\n<Caption>";
        story += caption;
        story += "</Caption>\r\n<Credit>";
        story += credit;
        story += "</Credit>\r\n<IPTCKeywords>";
        story += keywords;
        story += "</IPTCKeywords>\r\n</ImageBag>\r\n</Images>\r\n";
    }
    story += "</Story>\r\n";
    return story;
}

}  // namespace tessarin::testing
