#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "config/messages_section.h"
#include "config/transmission_section.h"

namespace tessarin {

// The repository keeps copies of saved stories (the tracking base, one collection per
// author) and of stories exported for page layout (the export base, one collection per
// publication level) on a BaseX server: a document base is a database, a collection a
// path in it. Each store connects for itself and closes at the end; the save or the send
// that asked for it goes on whatever happens here.

// What a store needs of the program around it: the TextML section, the message texts, the
// user to tell and the window whose second status panel says "saved".
struct RepositoryContext {
    const TextMLSettings& settings;
    const MessageTexts& messages;
    UserInteraction& user;
    WindowState& window;
};

enum class RepositoryOutcome {
    Stored,
    NoAuthor,           // a story without Metadata/Author is not kept: nothing was said
    Unreadable,         // the file does not parse (or cannot be read): told
    ServerUnavailable,  // no server at ServerName, or it refused the login: told
    BaseMissing,        // the document base does not exist on the server: told
    Refused,            // the server refused the document: told, with its reason
};

struct RepositoryResult {
    RepositoryOutcome outcome = RepositoryOutcome::Stored;
    std::string message;  // what the user was told; empty when stored or nothing was said
};

// The publication levels of an exported story: Publication, Classification,
// SectionGeneral (else SectionLocal), SubSectionGeneral (else SubSectionLocal).
using ExportCollectionLevels = std::array<std::string, 4>;

// Stores the exported file <directory>/<fileName> in ExportDocBaseName, in the collection of
// its non-empty levels in order ("/" when Publication is empty), as <collection>/<fileName>.
// With KeepVersions of the base off, the earlier documents of that path are deleted first;
// with it on they stay beside the new one. A server that cannot be reached shows the stop
// box "TextML Server not defined or not running:" line end ServerName; a base that does not
// exist "TextML document base not defined:" line end its name.
RepositoryResult StoreExportDocument(const std::filesystem::path& directory,
                                     const std::string& fileName,
                                     const ExportCollectionLevels& levels,
                                     RepositoryContext& context);

// Stores the saved story <directory>/<fileName> in TrackingDocBaseName, in the collection of
// its author, as the export store does. A story that does not parse gets a beep and the stop
// box "Parsing error: " line end path line end "line: " n ", pos: " n line end source text
// line end reason; one without an author is passed over quietly. Once stored, the second
// status panel shows SavedStoryTextML when that message is not empty.
RepositoryResult StoreTrackingDocument(const std::string& fileName,
                                       const std::filesystem::path& directory,
                                       RepositoryContext& context);

}  // namespace tessarin
