#include "search/my_stories.h"

#include <system_error>

#include "common/xml_document.h"
#include "search/story_search.h"
#include "search/story_walk.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

std::string ParsingErrorText(const fs::path& file) {
    XmlDocument document;
    document.LoadFile(file);
    const XmlParseError error = document.ParseError().value_or(XmlParseError{});
    return "Parsing error:" + file.string() + "\nline:" + std::to_string(error.line) +
           ", pos:" + std::to_string(error.linePosition);
}

void AddDesk(const fs::path& folder, bool archived, bool includeBackups, SearchCache& cache,
             UserInteraction& user, std::vector<DeskFile>& rows) {
    if (folder.empty()) return;
    std::vector<fs::path> files = WalkFolderFiles(folder, false);
    std::erase_if(files, [&](const fs::path& file) {
        return IsStoryFileName(file) && PlainFileRow(file).backup && !includeBackups;
    });
    std::vector<fs::path> stories;
    for (const fs::path& file : files)
        if (IsStoryFileName(file)) stories.push_back(file);
    const std::vector<SearchCache::Extract> extracts = ExtractFiles(stories, cache);
    std::size_t next = 0;
    for (const fs::path& file : files) {
        if (!IsStoryFileName(file)) {
            rows.push_back({PlainFileRow(file), false, archived});
            continue;
        }
        const SearchCache::Extract& extract = extracts[next++];
        if (extract) {
            rows.push_back({extract->row, true, archived});
        } else if (fs::exists(file)) {
            user.Tell(ParsingErrorText(file), MessageIcon::Exclamation);
        }
    }
}

}  // namespace

std::vector<DeskFile> GetDeskFiles(const fs::path& personal, const fs::path& archives,
                                   bool includeBackups, SearchCache& cache, UserInteraction& user) {
    std::vector<DeskFile> rows;
    AddDesk(personal, false, includeBackups, cache, user, rows);
    AddDesk(archives, true, includeBackups, cache, user, rows);
    return rows;
}

bool MoveBetweenDesks(const DeskFile& file, const fs::path& personal, const fs::path& archives,
                      const MessageTexts& messages, UserInteraction& user) {
    const fs::path source = file.row.Path();
    const fs::path target = (file.archived ? personal : archives) / file.row.name;
    std::error_code error;
    if (fs::exists(target, error)) {
        const std::string question = messages.Message("StoryAlreadyPresent") + " '" +
                                     file.row.name + "'\n" + messages.Message("StoryBackupReplace");
        if (user.Ask(question, false, MessageIcon::Exclamation) != Answer::Yes) return false;
    }
    if (!fs::copy_file(source, target, fs::copy_options::overwrite_existing, error)) return false;
    fs::permissions(target, fs::perms::owner_write, fs::perm_options::add, error);
    fs::permissions(source, fs::perms::owner_write, fs::perm_options::add, error);
    return fs::remove(source, error);
}

}  // namespace tessarin
