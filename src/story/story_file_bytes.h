#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// The bytes of a story file as they are assembled, line by line. The file is 8-bit text:
// - markup (element names, attribute names, the fixed words of the format) is ASCII;
// - an escaped value goes through XmlEscape, then in UTF-8 mode each UTF-16 code unit
//   becomes its own UTF-8 group, and otherwise each character its Windows-1252 byte;
// - a raw value (a formal code, a log type, the style sheet) is not escaped and is always
//   written in Windows-1252, in both modes;
// - bytes that are already final (the body) are copied.
// A character that Windows-1252 lacks is written "?". Lines end in CR LF.
class StoryFileBytes {
  public:
    explicit StoryFileBytes(bool utf8) : utf8_(utf8) {}

    StoryFileBytes& Markup(std::string_view ascii);
    StoryFileBytes& Escaped(std::string_view utf8Text);
    StoryFileBytes& Raw(std::string_view utf8Text);
    StoryFileBytes& Final(std::string_view bytes);
    StoryFileBytes& EndLine();

    // The escaped form of a value, as Escaped writes it.
    std::string EscapedBytes(std::string_view utf8Text) const;

    void Reserve(std::size_t size) { bytes_.reserve(size); }
    std::string Take() { return std::move(bytes_); }

  private:
    bool utf8_;
    std::string bytes_;
};

}  // namespace tessarin
