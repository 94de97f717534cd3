#pragma once

#include <cstddef>

#include "export/export_frame.h"
#include "session/editor_session.h"

namespace tessarin {

// What an export of the open session needs: its configuration, window, preferences and user,
// the user's name, the FTP server (counted from 1, 0 outside an FTP send) and the one "now".
inline ExportContext SessionExportContext(EditorSession& session, LocalDateTime now,
                                          std::size_t ftpServer = 0) {
    return {.configuration = session.configuration,
            .window = session.window,
            .preferences = session.preferences,
            .user = session.user,
            .userName = session.configuration.identity.author,
            .ftpServer = ftpServer,
            .now = now};
}

}  // namespace tessarin
