#include "editing/notes_edit.h"

#include <cctype>
#include <cstdio>
#include <string_view>

#include "common/utf8.h"
#include "editing/bookmark_anchor.h"
#include "editing/copy_fit.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

std::string Padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

// The bookmark forms: runs of one letter, read without regard to case.
std::string FormatStamp(const LocalDateTime& when, std::string_view pattern) {
    std::string out;
    bool afterHour = false;
    for (std::size_t at = 0; at < pattern.size();) {
        const char letter =
            static_cast<char>(std::tolower(static_cast<unsigned char>(pattern[at])));
        std::size_t run = 1;
        while (at + run < pattern.size() &&
               std::tolower(static_cast<unsigned char>(pattern[at + run])) == letter) {
            ++run;
        }
        const std::string_view rest = pattern.substr(at + run);
        const bool beforeSeconds =
            rest.find_first_not_of(":. ") != std::string_view::npos &&
            std::tolower(static_cast<unsigned char>(rest[rest.find_first_not_of(":. ")])) == 's';
        switch (letter) {
            case 'd':
                out += Padded(when.day, run >= 2 ? 2 : 1);
                break;
            case 'y':
                out += run >= 4 ? Padded(when.year, 4) : Padded(when.year % 100, 2);
                break;
            case 'h':
                out += Padded(when.hour, run >= 2 ? 2 : 1);
                break;
            case 'n':
                out += Padded(when.minute, run >= 2 ? 2 : 1);
                break;
            case 's':
                out += Padded(when.second, run >= 2 ? 2 : 1);
                break;
            case 'm':
                out +=
                    Padded(afterHour || beforeSeconds ? when.minute : when.month, run >= 2 ? 2 : 1);
                break;
            default:
                out.append(pattern.substr(at, run));
        }
        if (std::isalpha(static_cast<unsigned char>(letter))) afterHour = letter == 'h';
        at += run;
    }
    return out;
}

StyledText& Box(EditorSession& session, int box) {
    return session.story.boxes[static_cast<std::size_t>(box)];
}

// The note count of the root's caption.
void ShowNoteCount(EditorSession& session) {
    TreeModel& tree = session.window.Tree("treeNotes");
    if (tree.Empty()) return;
    tree.Roots().front().text = session.configuration.story.notes.name + " [" +
                                std::to_string(session.story.notes.size()) + "]";
}

// Takes the anchor of title out of every box that holds it.
void RemoveAnchors(EditorSession& session, const std::string& title) {
    const std::u16string wanted = Utf8ToUtf16(title);
    for (int box = 0; box < kTextBoxCount; ++box) {
        const std::optional<std::size_t> position = FindAnchor(Box(session, box), wanted);
        if (!position) continue;
        Box(session, box).Erase(*position, wanted.size());
        BoxTextChange change;
        change.lengthDelta = -static_cast<std::int64_t>(wanted.size());
        change.noteCharacterDelta = -static_cast<std::int32_t>(wanted.size());
        BoxTextChanged(session, box, change, ChangeOrigin::User);
    }
    ClearUndo(session);
}

void DropNote(EditorSession& session, std::size_t note) {
    const StoryNote dropped = session.story.notes[note];
    session.story.notes.erase(session.story.notes.begin() + static_cast<std::ptrdiff_t>(note));
    if (dropped.bookmark) RemoveAnchors(session, dropped.title);
    ShowNotes(session);
    session.storyModified = true;
}

std::string WithCrLf(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
        if (text[at] == '\n' || text[at] == '\r') {
            result += "\r\n";
        } else {
            result += text[at];
        }
    }
    return result;
}

}  // namespace

std::string NewNoteTitle(const EditorSession& session, const LocalDateTime& when) {
    const Identity& user = session.configuration.identity;
    const Preferences& preferences = session.preferences;
    return (preferences.BookmarksInitials ? user.initials : user.author) + " " +
           FormatStamp(when, preferences.BookmarksDate) + " " +
           FormatStamp(when, preferences.BookmarksTime);
}

void ShowNotes(EditorSession& session) {
    TreeModel& tree = session.window.Tree("treeNotes");
    if (tree.Empty()) return;
    TreeNode& root = tree.Roots().front();
    root.children.clear();
    for (std::size_t index = 0; index < session.story.notes.size(); ++index) {
        const StoryNote& note = session.story.notes[index];
        TreeNode node;
        node.key = "N" + std::to_string(index + 2);
        node.text = note.title;
        node.tag = note.text;
        node.hasColour = note.foreign;
        node.colour = note.foreign ? kForeignNoteColour : 0;
        root.children.push_back(std::move(node));
    }
    ShowNoteCount(session);
}

bool CanChangeNote(const EditorSession& session, std::size_t note) {
    return note < session.story.notes.size() &&
           (!session.story.notes[note].foreign || session.configuration.story.notes.manageAllNotes);
}

std::optional<std::size_t> AddNote(EditorSession& session,
                                   const std::optional<TextSelection>& selection,
                                   const LocalDateTime& when) {
    if (!session.configuration.story.notes.visible) return std::nullopt;
    StoryNote note;
    note.title = NewNoteTitle(session, when);
    if (selection) {
        TextSelection place = *selection;
        StyledText* text = EditableBox(session, place);
        if (text != nullptr && !HoldsProtectedText(*text, place.start, 0)) {
            const std::u16string title = Utf8ToUtf16(note.title);
            InsertAnchor(*text, place.start, title, session.preferences.BookmarksColor);
            BoxTextChange change;
            change.lengthDelta = static_cast<std::int64_t>(title.size());
            change.noteCharacterDelta = static_cast<std::int32_t>(title.size());
            BoxTextChanged(session, place.box, change, ChangeOrigin::User);
            note.bookmark = true;
            ClearUndo(session);
        }
    }
    session.story.notes.push_back(std::move(note));
    ShowNotes(session);
    return session.story.notes.size() - 1;
}

void CloseNote(EditorSession& session, std::size_t note, const std::string& text, bool isNew) {
    if (note >= session.story.notes.size()) return;
    if (isNew && text.empty()) {
        DropNote(session, note);
        return;
    }
    if (CanChangeNote(session, note)) session.story.notes[note].text = WithCrLf(text);
    ShowNotes(session);
    session.storyModified = true;
}

bool RemoveNote(EditorSession& session, std::size_t note) {
    if (!CanChangeNote(session, note)) return false;
    const std::string question =
        session.Message("NoteRemove") + " " + session.story.notes[note].title;
    if (session.user.Ask(question, false, MessageIcon::Question) != Answer::Yes) return false;
    DropNote(session, note);
    return true;
}

std::optional<TextSelection> BookmarkAnchor(const EditorSession& session, std::size_t note) {
    if (note >= session.story.notes.size() || !session.story.notes[note].bookmark) {
        return std::nullopt;
    }
    return FindAnchorInStory(session.story, Utf8ToUtf16(session.story.notes[note].title));
}

}  // namespace tessarin
