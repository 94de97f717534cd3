#pragma once

#include <filesystem>
#include <string>

namespace tessarin {

// What the mail window attaches of the current story: the story file itself and its
// pictures and other files, uuencoded one after the other into the body of the mail.
struct MailAttachments {
    std::string text;        // the uuencoded files, one after the other
    std::string parseError;  // the story did not parse: the story file was left out
};

// With xml, the story file, each Image and File href in it cut to the bare file name (what
// stands after "file://" and the last separator, "%20" made a blank, blanks made "_"), under
// the story's own name. With files, each picture and other file of the story that exists,
// in story order; a missing one is passed over.
MailAttachments StoryMailAttachments(const std::filesystem::path& story, bool xml, bool files);

// The body that goes: the message, and when there are attachments, two line breaks and them.
std::string MailBodyWith(const std::string& message, const std::string& attachments);

}  // namespace tessarin
