#include "editing/multiple_clipboard.h"

#include <fstream>

#include "common/file_io.h"
#include "common/text_replace.h"
#include "common/utf8.h"
#include "common/windows1252.h"
#include "config/colours.h"
#include "config/text_trim.h"
#include "editing/clipboard.h"

namespace tessarin {
namespace {

constexpr std::string_view kDefaultLabel = "Multiple clipboard";

std::string Label(const EditorSession& session) {
    return session.configuration.interface.CaptionOr("EditionMultipleClipboard", kDefaultLabel);
}

std::vector<std::string> SplitLines(std::string_view bytes) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start <= bytes.size()) {
        std::size_t end = bytes.find_first_of("\r\n", start);
        if (end == std::string_view::npos) end = bytes.size();
        const std::string_view line = TrimWhitespace(bytes.substr(start, end - start));
        if (!line.empty()) lines.push_back(Windows1252ToUtf8(line));
        start = end + 1;
    }
    return lines;
}

// The list to change, or nothing when there is no usable file.
std::optional<std::vector<std::string>> Lines(EditorSession& session, std::filesystem::path& file) {
    file = MultipleClipboardFile(session);
    if (file.empty()) return std::nullopt;
    std::string problem;
    return ReadClipboardLines(file, problem);
}

bool WriteLines(const std::filesystem::path& file, const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines)
        bytes += Utf8ToWindows1252(line) + "\r\n";
    return WriteFileAtomically(file, bytes);
}

}  // namespace

std::filesystem::path MultipleClipboardFile(const EditorSession& session) {
    const std::string& name =
        session.configuration.interface.Entry("EditionMultipleClipboard").File;
    if (name.empty()) return {};
    const std::filesystem::path path(name);
    return path.is_absolute() ? path : session.paths.appDir / path;
}

std::optional<std::vector<std::string>> ReadClipboardLines(const std::filesystem::path& file,
                                                           std::string& problem) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return std::vector<std::string>{};
    const std::optional<std::string> bytes = ReadFileBytes(file);
    if (!bytes) {
        problem = file.string() + ": cannot be read";
        return std::nullopt;
    }
    if (bytes->find('\0') != std::string::npos) {
        problem = file.string() + ": not a list of text lines";
        return std::nullopt;
    }
    return SplitLines(*bytes);
}

std::string ClipboardShortForm(std::string_view line, std::size_t limit, int entry) {
    std::string text(line);
    ReplaceAllInText(text, "\\n", " ");
    ReplaceAllInText(text, "\r\n", " ");
    for (char& c : text) {
        if (c == '\r' || c == '\n' || c == '\t') c = ' ';
    }
    std::u16string units = Utf8ToUtf16(text);
    if (units.size() > limit) {
        units.resize(limit);
        const std::size_t blank = units.rfind(u' ');
        if (blank != std::u16string::npos) units.resize(blank);
        text = Utf16ToUtf8(units) + " [...]";
    } else {
        text = std::string(TrimWhitespace(text));
    }
    if (entry >= 1 && entry <= kShortcutEntries) text += " [Ctrl+F" + std::to_string(entry) + "]";
    return text;
}

void ShowMultipleClipboard(EditorSession& session, std::size_t limit) {
    std::string problem;
    const std::filesystem::path file = MultipleClipboardFile(session);
    std::optional<std::vector<std::string>> lines =
        file.empty() ? std::vector<std::string>{} : ReadClipboardLines(file, problem);
    if (!lines) {
        session.window.Status() = {Label(session) + ": " + problem, true};
        lines.emplace();
    }
    TreeModel& tree = session.window.Tree("treeClipboard");
    tree.Clear();
    TreeNode root;
    root.key = "T";
    root.text = Label(session) + " [" + std::to_string(lines->size()) + "]";
    root.hasColour = lines->empty();
    root.colour = lines->empty() ? ClassicColour(8) : 0;
    root.expanded = true;
    int entry = 0;
    for (std::string& line : *lines) {
        TreeNode node;
        node.key = "T" + std::to_string(++entry);
        node.text = ClipboardShortForm(line, limit, entry);
        node.tag = std::move(line);
        root.children.push_back(std::move(node));
    }
    tree.Add(nullptr, std::move(root));
}

bool CopyToMultipleClipboard(EditorSession& session, TextSelection selection, std::size_t limit) {
    const StyledText* text = SelectedBox(session, selection);
    std::filesystem::path file;
    if (text == nullptr || selection.length == 0 || !Lines(session, file)) return false;
    std::string line = Utf16ToUtf8(text->Text(selection.start, selection.length));
    ReplaceAllInText(line, "\r\n", "\\n");
    {
        std::ofstream out(file, std::ios::binary | std::ios::app);
        out << Utf8ToWindows1252(line) << "\r\n";
        if (!out.flush()) return false;
    }
    ShowMultipleClipboard(session, limit);
    return true;
}

bool InsertClipboardEntry(EditorSession& session, TextSelection& selection, std::size_t entry) {
    std::filesystem::path file;
    const std::optional<std::vector<std::string>> lines = Lines(session, file);
    if (!lines || entry == 0 || entry > lines->size()) return false;
    TextClipboard snippet{(*lines)[entry - 1]};
    ReplaceAllInText(snippet.text, "\\n", "\r\n");
    return PasteClipboard(session, selection, snippet);
}

bool RemoveClipboardEntry(EditorSession& session, std::optional<std::size_t> entry,
                          std::size_t limit) {
    std::filesystem::path file;
    std::optional<std::vector<std::string>> lines = Lines(session, file);
    if (!lines || (entry && (*entry == 0 || *entry > lines->size()))) return false;
    const std::string question =
        entry ? session.Message("ClipboardTextRemove") + "\n" + (*lines)[*entry - 1]
              : session.Message("ClipboardTextRemoveAll");
    if (session.user.Ask(question, false, MessageIcon::Question) != Answer::Yes) return false;
    if (entry) {
        lines->erase(lines->begin() + static_cast<std::ptrdiff_t>(*entry - 1));
    } else {
        lines->clear();
    }
    const bool written = WriteLines(file, *lines);
    ShowMultipleClipboard(session, limit);
    return written;
}

}  // namespace tessarin
