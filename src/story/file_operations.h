#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// The File menu's commands on the open story of an editor session: new (and close), open,
// save, save as, the automatic save, and the question asked before a change is lost. Every
// question, message and file dialog goes through the session's user.

// Bringing an RTF, TXT or Word document into a new story. The open command hands such files
// to it after giving the story the document's name with the extension "xml" in the document's
// directory. Without it, the open command tells that importing is not available and changes
// nothing.
struct DocumentImport {
    // A converter for Word documents is there: the open dialog offers ".doc" files.
    bool wordDocuments = false;
    // Imports the document into the session's story; false when it could not.
    std::function<bool(EditorSession& session, const std::filesystem::path& document)> import;
};

// The question before a change is lost. Nothing is asked when the story is unchanged or its
// main box is locked (a read-only story). Otherwise the status panel shows NotSavedStory and
// AskSave is asked with Yes, No and Cancel: Cancel returns false; No returns true; Yes saves
// the story under its name, or, for a story without directory or name, through the save
// dialog titled SaveStory, and returns true only when the story was saved: a refused save (a
// mandatory field, an empty story, a file that cannot be written) or a cancelled dialog keeps
// the story as it is and returns false, so that no change is lost.
bool SettleChangesBeforeLoss(EditorSession& session);

// NewStory (also the close command): the question, then the editor shows the new story of a
// fresh start (ShowNewStory), without name and unchanged. False when the question stopped it.
bool NewStory(EditorSession& session);

// OpenStory: the question, then the open dialog titled OpenStory in the last story directory
// (stories, backup stories, and RTF/TXT or RTF/TXT/Word documents), the personal directory
// rule, DirStories written, and the file opened by its extension (OpenStoryFile). False when
// the question or the dialog stopped it or nothing was opened.
bool OpenStory(EditorSession& session, const DocumentImport& documents = {});

// A row of the recent-files menu (0 for File1): the question, then the file opened by its
// extension. False when the row is empty, the question stopped it or nothing was opened.
bool OpenRecentFile(EditorSession& session, std::size_t row, const DocumentImport& documents = {});

// Opens a file by its extension in upper case, which the session keeps: "RTF", "TXT", "DOC",
// "DOCX" and "ODT" go to the import; "BML" is a backup story, restored over its story first;
// anything else is read as a story. Once a story file is there the editor is reset, the file read,
// the form it names chosen (before its text and attachments are in place, so that choosing it asks
// nothing), the boxes counted and the attachments shown; the story takes the file's directory
// and name and counts as unchanged, the automatic save's countdown starts again, the title
// shows the name and the recent-files list takes the path; a story rescued as text only
// counts as changed. A file that cannot be read (missing, refused, nothing rescued) is told
// and leaves the open story as it stood.
//
// A backup story "base.bml": when "base.xml" stands beside it, Yes/No StoryBackupReplace
// " '" base.xml "'" line break StoryBackupReplaceBy " '" base.bml "'"; otherwise
// StoryBackupOpen " '" base.bml "'". No ends the opening. Yes renames the backup story over
// "base.xml", adds the log entry of type "A" to that file, and reads it.
bool OpenStoryFile(EditorSession& session, const std::filesystem::path& file,
                   const DocumentImport& documents = {});

// SaveCurrentStory: a story with directory and name is saved when it is modified (an
// unchanged one is not written again); one without goes through the save dialog titled
// SaveStory. True when the story was saved.
bool SaveCurrentStory(EditorSession& session);

// SaveAndCloseStory (mnuFileSaveClose): a story with changes is saved as SaveCurrentStory
// saves it, then closed as NewStory closes it. A refused or cancelled save keeps it open;
// false then.
bool SaveAndCloseStory(EditorSession& session);

// SaveStoryAs: the save dialog titled SaveStoryAs with an empty name, in the last story
// directory, filtered on StoriesLabel " XML (*.xml)|*.xml"; then the personal directory rule,
// the directory and name taken over (a name that is not ".xml" takes the extension,
// WithFilterExtension), DirStories written, and the story saved. False when the
// dialog is cancelled (nothing changes) or the save is refused.
bool SaveStoryAs(EditorSession& session);

// The personal directory rule, after every story dialog: while the workflow is visible and
// PersonalTextsDirectory is set, a chosen directory whose text, in upper case, does not
// contain the personal directory's, in upper case, is refused with a warning (InvalidDirectory,
// line break, AllowedDirectory, line break, the personal directory) and replaced by the
// personal directory. Returns the directory to use.
std::filesystem::path ApplyPersonalDirectoryRule(EditorSession& session,
                                                 const std::filesystem::path& chosen);

// One tick of the automatic save's timer, which runs while BackupAuto is on: when the
// countdown has fallen below 1 it starts again at BackupAutoTime, after an unattended save of
// a story that has a directory and a name and is modified, unless allowed (the main window
// has no dialog open) says no. Then the countdown falls by one.
void BackupTick(EditorSession& session, bool allowed = true);

// Shows the recent-files list in mnuFileMRU1 to mnuFileMRU4 (the file name of each entry; an
// empty entry hides its row) and mnuSepMRU (hidden when every row is).
void ShowRecentFiles(EditorSession& session);

}  // namespace tessarin
