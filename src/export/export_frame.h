#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/clock.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/preferences.h"

namespace tessarin {

// The frame shared by the export writers: a sender stages a story in the upload directory,
// calls one writer, and copies the file the writer left there to the writer's target path.
// Paths are native texts ("/" separators); the upload directory ends in "/" so that a
// story's name is appended to it directly.

// Who calls a writer and where its output goes.
enum class ExportMode : std::int16_t {
    Ftp = 1,     // FTP send: the TextsDirectory of the chosen server
    Layout = 2,  // workflow send to a layout destination: ExportTextsDirectory
    User = 3,    // workflow send to a person: TargetPath is set by the sender
};

// What a sender and a writer hand each other for one story.
struct ExportState {
    std::string UploadDirectory;    // the queue, ending in "/"
    std::string CurrentUploadNode;  // the staged story's file name, no directory
    std::string SourceStoryPath;    // UploadDirectory + CurrentUploadNode; what the writer parses
    std::string ExportedFilePath;   // the writer's output in the upload directory
    std::string TargetPath;         // where the sender copies ExportedFilePath to
    std::string TargetDirectory;    // TargetPath before the name was added (folder writers)
    std::string OriginalStoryPath;  // Metadata/OriginalPath Name: archived after the send
    // 0 Publication, 1 Classification, 2 SectionGeneral (else SectionLocal),
    // 3 SubSectionGeneral (else SubSectionLocal).
    std::array<std::string, 4> StoryNameFields;
    std::string LogLine;  // the send record that the TessarinML writer stores in the story
};

// What every writer reads of the program around it.
struct ExportContext {
    const Configuration& configuration;
    WindowState& window;  // label captions, the keywords tree
    const Preferences& preferences;
    UserInteraction& user;  // the parse error box
    std::string programVersion = TESSARIN_VERSION;
    std::string userName;       // the user's name (Identification Author)
    std::size_t ftpServer = 0;  // mode Ftp: server N, counted from 1
    LocalDateTime now = Now();  // the one "now" of this export
};

// The writers, chosen by the exact, case-sensitive format value; anything else is
// TessarinML.
enum class ExportWriter { NewsML, NITF, InDesign, XPress, EditWorks, Milenium, RSS, TessarinML };
ExportWriter WriterForFormat(std::string_view format);

// Name helpers on a file name: the text before the last point (empty without a point), and
// the text up to and with the last point (empty without a point).
std::string BaseNameOf(std::string_view fileName);
std::string UpToLastPointOf(std::string_view fileName);

// The file a writer produces for a story named storyName: the same name (NewsML, NITF,
// Milenium, TessarinML), base name + ".txt" (InDesign) or ".xtg" (XPress), up to the last
// point + "txt" (EditWorks) or + "xml" (RSS).
std::string OutputNameFor(ExportWriter writer, std::string_view storyName);

// The chosen FTP server of mode Ftp; nullptr when the index names none.
const FtpServer* ChosenFtpServer(const ExportContext& context);

// Whether the writer makes delivery folders in this mode (InDesign, XPress and TessarinML in
// mode Layout).
bool MakesDeliveryFolders(ExportWriter writer, ExportMode mode);

// The first form of TargetPath for output name `name`. Mode Ftp: TextsDirectory of the
// server + "/" + name (name alone when that is empty). Folder writers in mode Layout:
// ExportTextsDirectory. Other writers: ExportTextsDirectory + "/" + name (name alone when
// that is empty). Mode User: the current TargetPath, as the sender set it.
std::string FirstTargetPath(ExportWriter writer, ExportMode mode, const ExportContext& context,
                            std::string_view name, std::string_view currentTargetPath);

// Steps 1 to 3 of every writer: output name, first TargetPath and ExportedFilePath
// (UploadDirectory + output name). Returns the output name.
std::string BeginExport(ExportState& state, ExportWriter writer, ExportMode mode,
                        const ExportContext& context);

// The delivery folder levels of a story, in order: Publication, PublicationDate ("/" made
// "-", "0" made the ColdStory Name), Classification, SectionGeneral, SubSectionGeneral,
// SectionLocal, SubSectionLocal (each when its element exists in Metadata), and the story's
// base name when not empty.
std::vector<std::string> DeliveryFolderLevels(const XmlNode& metadata,
                                              std::string_view coldStoryName,
                                              std::string_view storyName);

// Deepens TargetPath by the delivery folder levels, creating each directory at once (an
// existing one is no error; one that cannot be made is left to the sender's copy). With no
// ExportTextsDirectory nothing is made and TargetPath stays empty: the chain would start at
// the root of the file system.
void BuildDeliveryFolders(ExportState& state, const XmlNode& metadata,
                          const ExportContext& context);

// Last step of the folder writers: TargetDirectory = TargetPath; then, in mode Layout,
// TargetPath = TargetPath + "/" + name when ExportTextsDirectory is set, else name.
void FinishTargetPath(ExportState& state, ExportMode mode, const ExportContext& context,
                      std::string_view name);

// Stores Metadata/OriginalPath Name into OriginalStoryPath (empty when missing).
void StoreOriginalStoryPath(ExportState& state, const XmlNode& metadata);

// Fills StoryNameFields from Metadata.
void FillStoryNameFields(ExportState& state, const XmlNode& metadata);

// A staged story, parsed: the document and its root, Metadata and Body (each may be missing).
struct StagedStory {
    XmlDocument document;
    XmlNode root;
    XmlNode metadata;
    XmlNode body;
};

// "Parsing error:" + path + ", line:" n + ", pos:" n + " " + trimmed source text + " " +
// reason: the export's parse error text. The style sheet's own error says ", Ligne: " and
// ", position: " instead.
std::string ExportParseErrorText(std::string_view path, const XmlParseError& error,
                                 std::string_view lineWord = ", line:",
                                 std::string_view positionWord = ", pos:");

// Steps 4 to 6: loads the story at path; when it does not parse, shows the parse error in a
// critical box, beeps, and gives nothing.
std::optional<StagedStory> LoadStagedStoryOrShowError(const std::string& path,
                                                      const ExportContext& context);

// Step 8: replaces ExportedFilePath by the composed bytes in one write, nothing added. The
// file is a passing copy in the upload directory: it is never seen half-written, but not
// flushed to disk. False when the file cannot be written.
bool WriteExportedFile(const ExportState& state, std::string_view bytes);

// The writers. Each reads CurrentUploadNode, UploadDirectory and SourceStoryPath, and sets
// ExportedFilePath, TargetPath, OriginalStoryPath and, in the folder writers,
// TargetDirectory. A failure has been shown to the user and leaves the state as it stands.
void ExportNewsML(ExportState& state, ExportMode mode, const ExportContext& context);
void ExportNITF(ExportState& state, ExportMode mode, const ExportContext& context);
void ExportInDesign(ExportState& state, ExportMode mode, const ExportContext& context);
void ExportXPress(ExportState& state, ExportMode mode, const ExportContext& context);
void ExportEditWorks(ExportState& state, ExportMode mode, const ExportContext& context);
void ExportMilenium(ExportState& state, ExportMode mode, const ExportContext& context);
void ExportRSS(ExportState& state, ExportMode mode, const ExportContext& context);
// logType: the destination's one-letter type, the Type of the new log entry.
void ExportTessarinML(ExportState& state, std::string_view logType, ExportMode mode,
                      const ExportContext& context);

// Runs the writer for the exact format value.
void RunExport(std::string_view format, ExportMode mode, std::string_view logType,
               ExportState& state, const ExportContext& context);

}  // namespace tessarin
