#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// The multiple clipboard: snippets that a writer uses again and again, kept one a line in the
// file that the configuration's EditionMultipleClipboard names (attribute File; a relative
// name lies in the application directory), in the 8-bit code page with CR LF line ends. A
// line end inside a snippet is written as the two characters "\" and "n", and every "\n" of
// a line comes back as a line break: the escape is not itself escaped.
//
// treeClipboard shows the snippets under the root "T", captioned with the label, " [", the
// number of entries and "]" (grey while the list is empty); each node's tag is its line and
// its text the short form.

inline constexpr int kShortcutEntries = 6;  // Ctrl+F1 to Ctrl+F6

// The list file, or an empty path when the configuration names none.
std::filesystem::path MultipleClipboardFile(const EditorSession& session);

// The snippets of the file, trimmed, blank lines left out. A missing file is an empty list.
// A file that is not a list of text lines (it holds NUL bytes) reads as no list at all:
// nothing, and problem says why.
std::optional<std::vector<std::string>> ReadClipboardLines(const std::filesystem::path& file,
                                                           std::string& problem);

// The text of a node: "\n", CR LF, CR, LF and tab made blanks; beyond limit units, cut there
// and back to the last blank, then " [...]"; else trimmed. Entries 1 to 6 get
// " [Ctrl+F" and their number "]".
std::string ClipboardShortForm(std::string_view line, std::size_t limit, int entry);

// Reads the file again and fills treeClipboard. A file that cannot be read as a list shows
// its problem in the status panel, and the commands then leave it alone.
void ShowMultipleClipboard(EditorSession& session, std::size_t limit);

// Appends the selection's plain text as a line, then shows the list again. False when the
// selection is empty, there is no file or the file is no list.
bool CopyToMultipleClipboard(EditorSession& session, TextSelection selection, std::size_t limit);

// Puts entry (1 for the first) over the selection, unless that is protected; with Ctrl+F1 to
// Ctrl+F6 the entry is the key's number. False when there is no such entry.
bool InsertClipboardEntry(EditorSession& session, TextSelection& selection, std::size_t entry);

// Removes entry (1 for the first), or with no entry the whole list, after a yes to
// ClipboardTextRemove, a line break and the entry's text, or to ClipboardTextRemoveAll.
bool RemoveClipboardEntry(EditorSession& session, std::optional<std::size_t> entry,
                          std::size_t limit);

}  // namespace tessarin
