#include "story/import_document.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/file_io.h"
#include "common/utf8.h"
#include "common/windows1252.h"
#include "editing/copy_fit.h"
#include "editing/non_breaking_mark.h"
#include "editing/story_forms.h"
#include "story/file_operation_steps.h"
#include "story/rtf_reader.h"

extern char** environ;

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr int kMainBox = 6;

// Box 6 takes the document's text; the story counts as changed.
bool PutIntoMainBox(EditorSession& session, const std::optional<StyledText>& text) {
    if (!text) return false;
    session.story.boxes[kMainBox] = *text;
    session.storyModified = true;
    session.activeBox = kMainBox;
    UpdateCopyFit(session, kMainBox);
    ShowStoryName(session);
    return true;
}

template <typename Reader>
bool ImportWith(EditorSession& session, const fs::path& document, Reader read) {
    session.window.ClearStatus();
    RefreshStoryPanel(session);
    const std::optional<std::string> bytes = ReadFileBytes(document);
    if (!bytes) return false;
    return PutIntoMainBox(session, read(*bytes));
}

// Runs a program with its arguments, without a shell and without its output; true when it
// exited with 0.
bool RunProgram(const std::vector<std::string>& arguments) {
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int output : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, output, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int spawned = posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) return false;
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return false;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// A folder of its own below the temporary directory, removed with its content at the end.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::string pattern = (fs::temp_directory_path() / "tessarin-import-XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) path_ = pattern;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        if (!path_.empty()) fs::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

std::optional<std::string> ConvertedToRtf(const fs::path& converter, const fs::path& document) {
    const ScratchFolder scratch;
    if (scratch.path().empty()) return std::nullopt;
    const bool converted =
        RunProgram({converter.string(),
                    "-env:UserInstallation=file://" + (scratch.path() / "profile").string(),
                    "--headless", "--convert-to", "rtf", "--outdir", scratch.path().string(),
                    fs::absolute(document).string()});
    if (!converted) return std::nullopt;
    return ReadFileBytes(scratch.path() / document.stem().concat(".rtf"));
}

}  // namespace

StyledText ReadTextDocument(std::string_view bytes) {
    std::u16string text;
    if (IsValidUtf8(bytes)) {
        if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
        text = Utf8ToUtf16(bytes);
    } else {
        text = Utf8ToUtf16(Windows1252ToUtf8(bytes));
    }
    StyledText styled;
    std::u16string line;
    const auto flush = [&] {
        styled.Insert(styled.Length(), line, CharFormat{});
        line.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c == u'\r' || c == u'\n') {
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
            line += u"\r\n";
        } else if (c == u'\u00A0') {
            flush();
            styled.Insert(styled.Length(), std::u16string(1, kNonBreakingMark),
                          NonBreakingMarkFormat(CharFormat{}));
        } else {
            line += c;
        }
    }
    flush();
    return styled;
}

bool ImportRtfDocument(EditorSession& session, const fs::path& document) {
    return ImportWith(session, document,
                      [](std::string_view bytes) { return std::optional(ReadRtf(bytes)); });
}

bool ImportTextDocument(EditorSession& session, const fs::path& document) {
    return ImportWith(session, document, [](std::string_view bytes) {
        return std::optional(ReadTextDocument(bytes));
    });
}

bool ImportWordDocument(EditorSession& session, const fs::path& document) {
    const std::optional<fs::path> converter = OfficeConverter();
    session.window.ClearStatus();
    if (!converter) {
        session.window.Status().text = session.Message("WordNotInstalled");
        return false;
    }
    RefreshStoryPanel(session);
    const std::optional<std::string> rtf = ConvertedToRtf(*converter, document);
    return PutIntoMainBox(session, rtf ? std::optional(ReadRtf(*rtf)) : std::nullopt);
}

std::optional<fs::path> OfficeConverter() {
    const char* path = std::getenv("PATH");
    std::string_view folders = path ? path : "";
    while (!folders.empty()) {
        const std::size_t colon = folders.find(':');
        const fs::path candidate = fs::path(folders.substr(0, colon)) / "soffice";
        if (!candidate.parent_path().empty() && access(candidate.c_str(), X_OK) == 0)
            return candidate;
        folders = colon == std::string_view::npos ? "" : folders.substr(colon + 1);
    }
    return std::nullopt;
}

DocumentImport StandardDocumentImport() {
    DocumentImport documents;
    documents.wordDocuments = OfficeConverter().has_value();
    documents.import = [](EditorSession& session, const fs::path& document) {
        const std::string& extension = session.lastExtensionUpper;
        if (extension == "RTF") return ImportRtfDocument(session, document);
        if (extension == "TXT") return ImportTextDocument(session, document);
        return ImportWordDocument(session, document);
    };
    return documents;
}

}  // namespace tessarin
