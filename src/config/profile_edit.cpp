#include "config/profile_edit.h"

#include <algorithm>
#include <deque>
#include <string_view>
#include <unordered_map>

#include "common/windows1252.h"
#include "config/profile_lines.h"

namespace tessarin {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool HasBlankAround(std::string_view name) {
    constexpr std::string_view kBlanks = " \t";
    return !name.empty() && (kBlanks.find(name.front()) != std::string_view::npos ||
                             kBlanks.find(name.back()) != std::string_view::npos);
}

// A name that reads back as itself once written.
bool IsWritableSection(std::string_view name) {
    return name.find_first_of("\r\n]") == std::string_view::npos && !HasBlankAround(name);
}

bool IsWritableKey(std::string_view name) {
    return name.find_first_of("\r\n=") == std::string_view::npos && !HasBlankAround(name) &&
           !name.starts_with(';') && !name.starts_with('[');
}

void AppendKeyLine(std::string& text, std::string_view name, std::string_view utf8Value) {
    std::string value = Utf8ToWindows1252(utf8Value);
    std::replace(value.begin(), value.end(), '\r', ' ');
    std::replace(value.begin(), value.end(), '\n', ' ');
    text += name;
    text += '=';
    text += value;
    text += kLineEnd;
}

// What must come before text added at the end so that it starts on a line of its own.
void StartLine(std::string& text) {
    if (text.empty() || text.back() == '\n') return;
    text += text.back() == '\r' ? "\n" : kLineEnd;
}

// The changes to the file's lines, gathered entry by entry and applied in one pass.
class ProfileEdit {
  public:
    explicit ProfileEdit(const ProfileContents& contents)
        : text_(contents.Text()), lines_(contents.Lines()) {}

    void Set(const std::string& section, const std::string& key, std::string_view value) {
        const std::string foldedKey = ProfileLines::FoldedName(section, key);
        if (const auto added = addedKeys_.find(foldedKey); added != addedKeys_.end()) {
            added->second->value = value;
        } else if (const auto line = lines_.FindKey(section, key)) {
            replaced_[*line] = value;
        } else {
            KeyLine& keyLine = keyLines_.emplace_back(KeyLine{key, std::string(value)});
            HomeOf(section).push_back(&keyLine);
            addedKeys_.emplace(foldedKey, &keyLine);
        }
    }

    std::string Result() const {
        std::string text;
        text.reserve(text_.size() + 64 * keyLines_.size());
        const auto& lines = lines_.Lines();
        for (std::size_t index = 0; index < lines.size(); ++index) {
            const ProfileLine& line = lines[index];
            if (const auto value = replaced_.find(index); value != replaced_.end()) {
                AppendKeyLine(text, line.name, value->second);
            } else {
                text += std::string_view(text_).substr(line.begin, line.end - line.begin);
            }
            if (const auto added = addedAfter_.find(index); added != addedAfter_.end()) {
                AppendKeyLines(text, added->second);
            }
        }
        for (const NewSection& section : newSections_) {
            StartLine(text);
            text += '[' + section.name + ']';
            text += kLineEnd;
            AppendKeyLines(text, section.keys);
        }
        return text;
    }

  private:
    struct KeyLine {
        std::string name;
        std::string value;
    };
    struct NewSection {
        std::string name;
        std::vector<KeyLine*> keys;
    };

    // Where the new keys of a section go: after the last key of its first occurrence in the
    // file, or in a section added at the end.
    std::vector<KeyLine*>& HomeOf(const std::string& section) {
        const std::string folded = ProfileLines::FoldedName(section, std::nullopt);
        if (const auto home = homes_.find(folded); home != homes_.end()) return *home->second;
        std::vector<KeyLine*>* home = nullptr;
        if (const auto point = lines_.InsertionPoint(section)) {
            home = &addedAfter_[*point];
        } else {
            home = &newSections_.emplace_back(NewSection{section, {}}).keys;
        }
        homes_.emplace(folded, home);
        return *home;
    }

    static void AppendKeyLines(std::string& text, const std::vector<KeyLine*>& keys) {
        if (keys.empty()) return;
        StartLine(text);
        for (const KeyLine* key : keys)
            AppendKeyLine(text, key->name, key->value);
    }

    const std::string& text_;
    const ProfileLines& lines_;
    std::unordered_map<std::size_t, std::string> replaced_;  // line index: its key's new value
    std::deque<KeyLine> keyLines_;                           // the keys added
    std::unordered_map<std::string, KeyLine*> addedKeys_;    // by folded section and key
    std::unordered_map<std::size_t, std::vector<KeyLine*>> addedAfter_;  // by line index
    std::deque<NewSection> newSections_;
    std::unordered_map<std::string, std::vector<KeyLine*>*> homes_;  // by folded section
};

}  // namespace

std::optional<std::string> ProfileTextWithEntries(const ProfileContents& contents,
                                                  const std::vector<ProfileEntry>& entries) {
    ProfileEdit edit(contents);
    for (const ProfileEntry& entry : entries) {
        const std::string section = Utf8ToWindows1252(entry.section);
        const std::string key = Utf8ToWindows1252(entry.key);
        if (!IsWritableSection(section) || !IsWritableKey(key)) return std::nullopt;
        edit.Set(section, key, entry.value);
    }
    return edit.Result();
}

}  // namespace tessarin
