#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// The preferences file: a sectioned text file of "[Section]" lines and "key=value" lines,
// read and written one key at a time. Text is UTF-8 here and Windows-1252 in the file.
//
// Reading. A missing file, section or key reads as std::nullopt, and so does a key whose
// value is empty: a present but empty value counts as missing. Section and key names compare
// without regard to case. Blanks around names and values are not part of them. A value is cut
// to its first kMaxValueLength characters. When a key is there twice, the first one counts.
// Lines end in CR LF or LF. A line that starts with ";" is a comment; a line that opens with
// "[" but has no "]" is neither a section nor a key. Any bytes can be read: what does not
// have the form of a section or a key is passed over.
//
// Writing. A write creates the file, the section (at the end of the file) and the key (after
// the last key of its section) as needed, or replaces the key's line; every other byte of the
// file stays as it was. The lines written end in CR LF. Line breaks inside a value are written
// as blanks, so that a value can never add lines to the file. The file is replaced as a whole
// through a temporary file beside it, so that it is never left half-written. A file that
// cannot be written (read-only, that is without any write permission bit, or in a missing
// folder) makes Write return false, without a message or an exception.
//
// Names that could not be read back as themselves are not written: a line break in a name,
// blanks around it, "=" in a key or a key that starts with ";" or "[", "]" in a section.
//
// Every call reads the file afresh: a change made meanwhile by another instance of the
// program is seen, and of two instances writing the same key the last one wins. Reading
// many keys goes through Load, which reads and indexes the file once; each key is then found
// in one step, and a write of many keys rewrites the file in one pass, so that the work
// grows with the file's size, not with its size times the number of keys.
struct ProfileEntry {
    std::string section;
    std::string key;
    std::string value;
};

class ProfileLines;

// The preferences file's text as it was when loaded, indexed.
class ProfileContents {
  public:
    explicit ProfileContents(std::string text);
    ProfileContents(ProfileContents&&) noexcept;
    ProfileContents& operator=(ProfileContents&&) noexcept;
    ~ProfileContents();

    std::optional<std::string> Read(std::string_view section, std::string_view key) const;

    const std::string& Text() const { return *text_; }
    const ProfileLines& Lines() const { return *lines_; }

  private:
    // On the heap, so that the lines' views of the text stay valid when the object moves.
    std::unique_ptr<const std::string> text_;
    std::unique_ptr<const ProfileLines> lines_;
};

class ProfileFile {
  public:
    static constexpr std::size_t kMaxValueLength = 255;

    explicit ProfileFile(std::filesystem::path file) : file_(std::move(file)) {}

    const std::filesystem::path& Path() const { return file_; }

    // The file as it stands now; empty when there is none or it cannot be read.
    ProfileContents Load() const;

    std::optional<std::string> Read(std::string_view section, std::string_view key) const;

    bool Write(std::string_view section, std::string_view key, std::string_view value);

    // Sets several keys in one replacement of the file, with the same result as writing them
    // one after the other; a read-only file, or a name that cannot be written, takes none of
    // them.
    bool Write(const std::vector<ProfileEntry>& entries);

  private:
    std::filesystem::path file_;
};

}  // namespace tessarin
