#include "repository/repository_store.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <optional>

#include "common/file_io.h"
#include "common/utf8.h"
#include "common/xml_document.h"
#include "repository/basex_session.h"
#include "story/story_file_reader.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// How long a store waits for the server to connect and for each of its answers.
constexpr std::chrono::seconds kRepositoryTimeout{10};

constexpr std::string_view kDeleteDocuments =
    "declare variable $base external; declare variable $path external; "
    "db:delete($base, $path)";

// A base name travels inside a command, so only the characters that a database name may
// hold are let through; any other name cannot exist on the server.
bool IsPlainBaseName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char character) {
        return std::isalnum(static_cast<unsigned char>(character)) || character == '_' ||
               character == '-' || character == '.';
    });
}

bool IsUtf8Name(std::string_view encoding) {
    std::string lower(encoding);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char character) { return std::tolower(character); });
    return lower.empty() || lower == "utf-8" || lower == "utf8";
}

// The server reads a document strictly by its declared encoding, while a story declared
// UTF-8 may hold stray Windows-1252 bytes and surrogate groups: such a document is sent
// repaired into the UTF-8 it means.
std::string ServerReadable(std::string bytes) {
    if (IsUtf8Name(DeclaredEncoding(bytes)) && !IsValidUtf8(bytes)) return RepairUtf8(bytes);
    return bytes;
}

RepositoryResult Told(RepositoryOutcome outcome, std::string text, RepositoryContext& context) {
    context.user.Tell(text, MessageIcon::Critical);
    return {outcome, std::move(text)};
}

RepositoryResult Unreadable(const fs::path& file, const XmlParseError& error,
                            RepositoryContext& context) {
    context.user.Beep();
    return Told(RepositoryOutcome::Unreadable, StoryParseErrorReport(file, error), context);
}

// One document for one base: the path is its collection and its name.
struct DocumentToStore {
    std::string base;
    bool keepVersions = true;
    std::string collection;  // "/" or "/level/level..."
    std::string name;
    std::string bytes;
    fs::path file;  // where it was read from, for the messages
};

RepositoryResult Store(const DocumentToStore& document, RepositoryContext& context) {
    const TextMLSettings& settings = context.settings;
    BaseXSession session(kRepositoryTimeout);
    if (!session.Open(RepositoryAddressOf(settings.ServerName), settings.User, settings.Password)) {
        std::string text = "TextML Server not defined or not running:\n" + settings.ServerName;
        // A server that answered but refused the login is running: the user is told why.
        if (session.error() == "Access denied.") text += "\n" + session.error();
        return Told(RepositoryOutcome::ServerUnavailable, std::move(text), context);
    }
    if (!IsPlainBaseName(document.base) || !session.Execute("OPEN " + document.base)) {
        return Told(RepositoryOutcome::BaseMissing,
                    "TextML document base not defined:\n" + document.base, context);
    }
    // Stories keep their white space. Servers that keep it anyway know no such option.
    session.Execute("SET CHOP false");
    const std::string path = document.collection == "/"
                                 ? document.name
                                 : document.collection.substr(1) + "/" + document.name;
    const bool stored =
        (document.keepVersions ||
         session.Query(kDeleteDocuments, {{"$base", document.base}, {"$path", path}})) &&
        session.Add(path, ServerReadable(document.bytes));
    if (!stored) {
        return Told(RepositoryOutcome::Refused, document.file.string() + "\n" + session.error(),
                    context);
    }
    const std::string saved = context.messages.Message("SavedStoryTextML");
    if (!saved.empty()) context.window.secondStatus = saved;
    return {};
}

std::string CollectionOf(const ExportCollectionLevels& levels) {
    if (levels[0].empty()) return "/";
    std::string collection;
    for (const std::string& level : levels) {
        if (!level.empty()) collection += "/" + level;
    }
    return collection;
}

}  // namespace

RepositoryResult StoreExportDocument(const fs::path& directory, const std::string& fileName,
                                     const ExportCollectionLevels& levels,
                                     RepositoryContext& context) {
    const fs::path file = directory / fileName;
    std::optional<std::string> bytes = ReadFileBytes(file);
    if (!bytes) return Unreadable(file, XmlParseError{0, 0, "", "cannot read file"}, context);
    const TextMLSettings& settings = context.settings;
    return Store({settings.ExportDocBaseName, settings.ExportKeepVersions, CollectionOf(levels),
                  fileName, std::move(*bytes), file},
                 context);
}

RepositoryResult StoreTrackingDocument(const std::string& fileName, const fs::path& directory,
                                       RepositoryContext& context) {
    const fs::path file = directory / fileName;
    std::optional<std::string> bytes = ReadFileBytes(file);
    XmlDocument story;
    if (!bytes || !story.LoadBytes(*bytes)) {
        return Unreadable(file,
                          story.ParseError().value_or(XmlParseError{0, 0, "", "cannot read file"}),
                          context);
    }
    const std::string author = story.DocumentElement().SelectSingleNode("Metadata/Author").Text();
    if (author.empty()) return {RepositoryOutcome::NoAuthor, {}};
    const TextMLSettings& settings = context.settings;
    return Store({settings.TrackingDocBaseName, settings.TrackingKeepVersions, "/" + author,
                  fileName, std::move(*bytes), file},
                 context);
}

}  // namespace tessarin
