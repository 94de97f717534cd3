#include "config/profile_lines.h"

#include <algorithm>
#include <random>

#include "config/text_trim.h"

namespace tessarin {
namespace {

// A Windows-1252 letter in lower case: the ASCII capitals, the accented capitals from 0xC0 to
// 0xDE (0xD7 is the multiplication sign) and the four capitals that the code page puts
// between 0x80 and 0x9F.
unsigned char FoldCase(char character) {
    const auto byte = static_cast<unsigned char>(character);
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7)) {
        return static_cast<unsigned char>(byte + 0x20);
    }
    switch (byte) {
        case 0x8A:  // S caron
        case 0x8C:  // OE
        case 0x8E:  // Z caron
            return static_cast<unsigned char>(byte + 0x10);
        case 0x9F:  // Y diaeresis
            return 0xFF;
        default:
            return byte;
    }
}

// FNV-1a over the folded bytes, from a start that differs from one run of the program to
// the next, so that no file can be made to collide on purpose.
constexpr std::uint64_t kPrime = 0x100000001B3;

std::uint64_t HashStart() {
    static const std::uint64_t start = 0xCBF29CE484222325 ^ std::random_device{}();
    return start;
}

std::uint64_t AddToHash(std::uint64_t hash, std::string_view name) {
    for (const char character : name) {
        hash ^= FoldCase(character);
        hash *= kPrime;
    }
    return hash;
}

// A power of two above twice the count: a table that always has empty slots.
std::size_t TableSize(std::size_t count) {
    std::size_t size = 1;
    while (size <= 2 * count)
        size *= 2;
    return size;
}

ProfileLine Classify(std::string_view text, std::size_t begin, std::size_t end) {
    ProfileLine line;
    line.begin = begin;
    line.end = end;
    const std::string_view trimmed = TrimWhitespace(text);
    if (trimmed.empty() || trimmed.front() == ';') return line;
    if (trimmed.front() == '[') {
        const auto close = trimmed.find(']');
        if (close == std::string_view::npos) return line;
        line.kind = ProfileLineKind::Section;
        line.name = TrimWhitespace(trimmed.substr(1, close - 1));
        return line;
    }
    const auto equals = trimmed.find('=');
    if (equals == std::string_view::npos) return line;
    line.kind = ProfileLineKind::Key;
    line.name = TrimWhitespace(trimmed.substr(0, equals));
    line.value = TrimWhitespace(trimmed.substr(equals + 1));
    return line;
}

}  // namespace

ProfileLines::ProfileLines(std::string_view text) {
    std::optional<std::string_view> section;  // the section the lines stand in
    std::size_t sections = 0, keys = 0;
    for (std::size_t begin = 0; begin < text.size();) {
        const auto newline = text.find('\n', begin);
        const auto textEnd = newline == std::string_view::npos ? text.size() : newline;
        const auto lineEnd = newline == std::string_view::npos ? text.size() : newline + 1;
        ProfileLine& line =
            lines_.emplace_back(Classify(text.substr(begin, textEnd - begin), begin, lineEnd));
        begin = lineEnd;
        if (line.kind == ProfileLineKind::Section) {
            section = line.name;
            ++sections;
        } else if (line.kind == ProfileLineKind::Key && section) {
            line.section = *section;
            line.inSection = true;
            ++keys;
        }
    }
    keys_.resize(TableSize(keys));
    sections_.resize(TableSize(sections));
    Slot* firstOfItsName = nullptr;  // the slot of the current section, when it came first
    for (std::size_t index = 0; index < lines_.size(); ++index) {
        const ProfileLine& line = lines_[index];
        if (line.kind == ProfileLineKind::Section) {
            Slot& slot =
                SlotOf(sections_, NameHash(line.name, std::nullopt),
                       [&](std::size_t other) { return SameName(lines_[other].name, line.name); });
            firstOfItsName = slot.named == kEmpty ? &slot : nullptr;
            if (firstOfItsName) slot.named = slot.found = index;
        } else if (line.inSection) {
            Slot& slot = SlotOf(keys_, NameHash(line.section, line.name), [&](std::size_t other) {
                return SameName(lines_[other].section, line.section) &&
                       SameName(lines_[other].name, line.name);
            });
            if (slot.named == kEmpty) slot.named = slot.found = index;
            if (firstOfItsName) firstOfItsName->found = index;
        }
    }
}

template <typename Same>
ProfileLines::Slot& ProfileLines::SlotOf(std::vector<Slot>& table, std::uint64_t hash, Same same) {
    const std::size_t mask = table.size() - 1;
    for (std::size_t probe = hash & mask;; probe = (probe + 1) & mask) {
        Slot& slot = table[probe];
        if (slot.named == kEmpty) {
            slot.hash = hash;
            return slot;
        }
        if (slot.hash == hash && same(slot.named)) return slot;
    }
}

template <typename Same>
std::optional<std::size_t> ProfileLines::Find(const std::vector<Slot>& table, std::uint64_t hash,
                                              Same same) {
    const std::size_t mask = table.size() - 1;
    for (std::size_t probe = hash & mask;; probe = (probe + 1) & mask) {
        const Slot& slot = table[probe];
        if (slot.named == kEmpty) return std::nullopt;
        if (slot.hash == hash && same(slot.named)) return slot.found;
    }
}

std::optional<std::size_t> ProfileLines::FindKey(std::string_view section,
                                                 std::string_view key) const {
    return Find(keys_, NameHash(section, key), [&](std::size_t line) {
        return SameName(lines_[line].section, section) && SameName(lines_[line].name, key);
    });
}

std::optional<std::size_t> ProfileLines::InsertionPoint(std::string_view section) const {
    return Find(sections_, NameHash(section, std::nullopt),
                [&](std::size_t line) { return SameName(lines_[line].name, section); });
}

bool ProfileLines::SameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return FoldCase(a) == FoldCase(b); });
}

std::string ProfileLines::FoldedName(std::string_view section,
                                     std::optional<std::string_view> key) {
    std::string folded;
    for (const char character : section)
        folded += static_cast<char>(FoldCase(character));
    if (key) {
        folded += '\n';
        for (const char character : *key)
            folded += static_cast<char>(FoldCase(character));
    }
    return folded;
}

std::uint64_t ProfileLines::NameHash(std::string_view section,
                                     std::optional<std::string_view> key) {
    std::uint64_t hash = AddToHash(HashStart(), section);
    if (key) hash = AddToHash((hash ^ '\n') * kPrime, *key);
    return hash;
}

}  // namespace tessarin
