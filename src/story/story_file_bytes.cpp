#include "story/story_file_bytes.h"

#include "common/utf8.h"
#include "common/windows1252.h"
#include "common/xml_escape.h"

namespace tessarin {

StoryFileBytes& StoryFileBytes::Markup(std::string_view ascii) {
    bytes_ += ascii;
    return *this;
}

std::string StoryFileBytes::EscapedBytes(std::string_view utf8Text) const {
    const std::string escaped = XmlEscape(utf8Text);
    return utf8_ ? EncodeUtf8Bytes(Utf8ToUtf16(escaped)) : Utf8ToWindows1252(escaped);
}

StoryFileBytes& StoryFileBytes::Escaped(std::string_view utf8Text) {
    bytes_ += EscapedBytes(utf8Text);
    return *this;
}

StoryFileBytes& StoryFileBytes::Raw(std::string_view utf8Text) {
    bytes_ += Utf8ToWindows1252(utf8Text);
    return *this;
}

StoryFileBytes& StoryFileBytes::Final(std::string_view bytes) {
    bytes_ += bytes;
    return *this;
}

StoryFileBytes& StoryFileBytes::EndLine() {
    bytes_ += "\r\n";
    return *this;
}

}  // namespace tessarin
