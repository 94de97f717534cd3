#pragma once

#include "session/editor_session.h"
#include "transmission/workflow_window.h"

namespace tessarin {

// cmdUpload: sends the send list to the destination selected in treeUsers, or on the
// message tab the message.

enum class SendOutcome {
    Sent,     // everything listed was delivered (or the message written)
    Refused,  // nothing was sent: no destination, an empty list, a destination that is no
              // folder name; the status panel or a message said why
    Stopped,  // the destination's inbox is missing: the send stopped there, what was sent
              // stays sent and the rest stays listed
    Failed,   // some stories could not be delivered: they stay listed, the user was told
};

// The steps of a send of stories:
// 1. the destination is remembered (IndexLastDestination or
//    IndexLastDestinationNotPreferred); an empty list is refused with AddStory;
// 2. with LogsEnabled today's daily page is prepared and a batch opened on it;
// 3. each staged story with its images and other files, in list order, is one item:
//    - to a layout destination ("L " and the export format) the export writer of the format
//      runs in layout mode (for NewsML, NITF and TessarinML, with the format's TextML switch
//      and the user's TextMLExport on, followed by a copy into the repository's export base,
//      in the collection of the story's publication levels); to a user or group the story is
//      prepared for its inbox <WorkflowDirectory>/<destination> (which must exist, else
//      InvalidDirectory stops the send with a box) by the TessarinML writer in user mode; both add
//      the transmission log
//      "<date> <hh:mm> - <author> -> <destination>" to the staged story when logs are kept;
//    - the story's file is copied to its target, then each image and other file: beside the
//      story in the inbox, in the story's delivery folder (InDesign, XPress, TessarinML),
//      in the NewsML ImagesDirectory when it exists, else in ExportImagesDirectory;
//    - when every copy of the item arrived: the log goes into the source story (LogsEnabled
//      or TrackingEnabled), tracking copies are made (TrackingEnabled: the source as
//      <base>.xml in TrackingTextsDirectory, each file in TrackingImagesDirectory), the
//      staged files are deleted, the source is renamed <base>.bml (replacing one that is
//      there), the daily page gets the item's lines and the report its lines;
//    - when a copy fails (a missing folder, a full disk, a read-only target), or a name is
//      no plain file name, or the story does not parse, nothing of the item is deleted or
//      renamed, the staged story is put back as it was, and the user is told which file
//      failed and why; the send goes on with the next item;
// 4. the list is rebuilt, the report locked, cmdAddStory and cmdUpload disabled.
// The report (heading ToolsCheckLogs) lists what was delivered: a story's name, then for an
// image a tab and "<ImageLabel>: <name>", for an other file "<OtherFile>: <name>".
SendOutcome SendWorkflow(EditorSession& session, WorkflowWindow& window);

// A line of the report as plain text: the story's name; a tab and "<ImageLabel>: <name>"
// for an image, a tab and "<OtherFile>: <name>" for an other file.
std::string ReportLineText(const EditorSession& session, const SendReportLine& line);

}  // namespace tessarin
