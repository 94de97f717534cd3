#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// The lines of a preferences file's text (profile_file.h gives its form), parsed once, with
// an index that finds a key or a section in one step. Names are the file's Windows-1252
// bytes and compare without regard to case. The views point into the text, which must
// outlive the object.

enum class ProfileLineKind { Other, Section, Key };

struct ProfileLine {
    std::size_t begin = 0;
    std::size_t end = 0;  // just past the line end, or the end of the text
    ProfileLineKind kind = ProfileLineKind::Other;
    std::string_view name;     // the section's or the key's name, without the blanks around it
    std::string_view value;    // the key's value, without the blanks around it
    std::string_view section;  // a key's section; empty for other lines
    bool inSection = false;    // a key line below a section header
};

class ProfileLines {
  public:
    explicit ProfileLines(std::string_view text);

    const std::vector<ProfileLine>& Lines() const { return lines_; }

    // The index of the key's line: the first in the file under a section of that name.
    std::optional<std::size_t> FindKey(std::string_view section, std::string_view key) const;

    // The line after which a new key of the section goes: the last key line of the first
    // section of that name, or its header when it has none; nothing when there is no such
    // section.
    std::optional<std::size_t> InsertionPoint(std::string_view section) const;

    // Whether two names are the same without regard to case, and a hash that agrees with it.
    static bool SameName(std::string_view left, std::string_view right);
    static std::uint64_t NameHash(std::string_view section, std::optional<std::string_view> key);
    // The names as a text that equal names share: folded, a section and a key joined by a
    // line feed, which no name in the file can hold.
    static std::string FoldedName(std::string_view section, std::optional<std::string_view> key);

  private:
    // An open-addressing table by name hash, of at least twice as many slots as lines, so
    // that a name is found in a step or two and takes no memory of its own. A slot holds the
    // line that carries the name and the line that the lookup gives.
    struct Slot {
        std::uint64_t hash = 0;
        std::size_t named = kEmpty;
        std::size_t found = kEmpty;
    };
    static constexpr std::size_t kEmpty = static_cast<std::size_t>(-1);

    // The slot of the name: the one that holds it, or the empty one where it goes.
    template <typename Same>
    static Slot& SlotOf(std::vector<Slot>& table, std::uint64_t hash, Same same);
    template <typename Same>
    static std::optional<std::size_t> Find(const std::vector<Slot>& table, std::uint64_t hash,
                                           Same same);

    std::vector<ProfileLine> lines_;
    std::vector<Slot> keys_;      // the first line of each section and key
    std::vector<Slot> sections_;  // each section's insertion point
};

}  // namespace tessarin
