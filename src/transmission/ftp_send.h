#pragma once

#include <cstddef>

#include "session/editor_session.h"
#include "transmission/ftp_client.h"
#include "transmission/workflow_window.h"

namespace tessarin {

enum class FtpSendOutcome {
    Sent,     // every listed item arrived
    Refused,  // an empty list (AddStory) or no such server: nothing was sent
    Failed,   // an upload failed: the walk stopped there, the user was told why; what arrived
              // left the list, the failed item and those after it stay listed
};

// cmdUpload of the FTP window, on a connected client, to server `server` (from 1):
// 1. with LogsEnabled today's daily page is prepared and a batch opened on it;
// 2. the list is walked item by item, a story with its pictures and other files (for the
//    format "MileniumInsert" from the last item to the first and each item's files before its
//    story, so that a story arrives after its pictures);
// 3. a story is exported in the server's format (mode FTP: its target is
//    <TextsDirectory>/<name>, or the bare name) with the transmission log
//    "<date> <hh:mm> - <author> -> ftp://<server>,<FormatLabel>:<format>", and that log is added
//    to the source story; pictures and other files go to <ImagesDirectory>/<name>, or the bare
//    name;
// 4. an item whose uploads all arrived leaves the list: its staged files are deleted and its
//    source is renamed <base>.bml; the daily page and the report get its lines;
// 5. a failed upload stops the walk with a box holding the FTP error; that item stays listed as
//    it was (an exported story is put back as it was staged);
// 6. the daily page is closed and, when the server has a LogsDirectory, uploaded to
//    "<LogsDirectory>\Log Tessarin yyyy-mm-dd [<author>].htm";
// 7. the list is rebuilt and the connection closed: a send always ends the connection.
// The progress of each file goes to the client's progress event.
FtpSendOutcome SendFtp(EditorSession& session, WorkflowWindow& window, FtpClient& ftp,
                       std::size_t server);

}  // namespace tessarin
