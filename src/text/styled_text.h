#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/window_state.h"

namespace tessarin {

// The character attributes that a text box keeps for each character.
struct CharFormat {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool waveUnderline = false;  // the wavy underline of a note's anchor
    bool isProtected = false;    // a note's anchor: cannot be edited by typing
    int offset = 0;              // character offset; above 0 is superscript
    OleColour colour = 0;        // text colour, 0x00BBGGRR; black is 0
    bool highlighted = false;
    OleColour highlight = 0;  // background colour when highlighted
    std::string fontName;     // empty: the box's font
    int fontSize = 0;         // in points; 0: the box's size

    friend bool operator==(const CharFormat&, const CharFormat&) = default;
};

// A stretch of characters that share one format.
struct FormatRun {
    std::size_t start = 0;
    std::size_t length = 0;
    CharFormat format;
};

// The content of one text box: UTF-16 code units, each with a format. Positions and counts
// are in code units, and a line break is the pair CR LF (two positions), as the story's
// character counts are defined. Editing costs grow with the size of the change, not with
// the size of the text, so that typing into a box of a million characters stays as quick
// as typing into a small one.
class StyledText {
  public:
    StyledText();
    explicit StyledText(std::u16string_view text, const CharFormat& format = {});
    StyledText(const StyledText&);
    StyledText& operator=(const StyledText&);
    StyledText(StyledText&&) noexcept;
    StyledText& operator=(StyledText&&) noexcept;
    ~StyledText();

    std::size_t Length() const;
    bool Empty() const { return Length() == 0; }

    // The plain text, whole or in part (a range past the end is cut at the end).
    std::u16string Text() const;
    std::u16string Text(std::size_t start, std::size_t length) const;
    char16_t CharAt(std::size_t position) const;

    // The format of the character at a position (the last character's for the end).
    CharFormat FormatAt(std::size_t position) const;

    // The runs of equal format in order, covering the whole text; adjacent runs differ.
    std::vector<FormatRun> Runs() const;
    // Calls back for each run that overlaps [start, start + length), clipped to it.
    void ForEachRun(std::size_t start, std::size_t length,
                    const std::function<void(const FormatRun&)>& visit) const;

    // Inserts text with a format at a position (clamped to the end).
    void Insert(std::size_t position, std::u16string_view text, const CharFormat& format);
    // Inserts another styled text, keeping its formats.
    void Insert(std::size_t position, const StyledText& other);
    void Erase(std::size_t start, std::size_t length);
    // Replaces a range by text in the format of the range's first character (or, for an
    // empty range, of the character before it), as typing over a selection does.
    void Replace(std::size_t start, std::size_t length, std::u16string_view text);
    void Clear();

    // A copy of a range with its formats.
    StyledText Slice(std::size_t start, std::size_t length) const;

    // Changes the format of every character of a range.
    void ApplyFormat(std::size_t start, std::size_t length,
                     const std::function<void(CharFormat&)>& change);

    // True when every character of a non-empty range satisfies the test; for an empty range,
    // the format at the position is tested.
    bool AllOf(std::size_t start, std::size_t length,
               const std::function<bool(const CharFormat&)>& test) const;

    // The position of the first match at or after start, or -1. Without matchCase the
    // comparison ignores case; with wholeWord the match must not touch a letter or digit
    // on either side.
    std::int64_t Find(std::u16string_view what, std::size_t start, bool matchCase,
                      bool wholeWord) const;

    // Upper- or lower-cases a range, keeping every character's format.
    void ToUpper(std::size_t start, std::size_t length);
    void ToLower(std::size_t start, std::size_t length);

    friend bool operator==(const StyledText& a, const StyledText& b);

  private:
    struct Storage;
    std::unique_ptr<Storage> storage_;
};

}  // namespace tessarin
