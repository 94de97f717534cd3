#pragma once

#include <string>
#include <string_view>

#include "common/windows1252.h"
#include "export/export_frame.h"

namespace tessarin::testing {

// A story file from lines written with "\n": CR LF line ends, in Windows-1252 under the
// ISO-8859-1 prolog, or in UTF-8 under the UTF-8 prolog.
inline std::string StoryFile(std::string_view lines, bool utf8 = false) {
    std::string text = utf8 ? "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n"
                            : "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n";
    for (const char c : lines) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return utf8 ? text : Utf8ToWindows1252(text);
}

// The state a sender leaves before it calls a writer for a staged story.
inline ExportState Staged(const std::string& uploadDirectory, const std::string& storyName) {
    ExportState state;
    state.UploadDirectory = uploadDirectory;
    state.CurrentUploadNode = storyName;
    state.SourceStoryPath = uploadDirectory + storyName;
    return state;
}

}  // namespace tessarin::testing
