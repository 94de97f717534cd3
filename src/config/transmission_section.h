#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/window_state.h"
#include "common/xml_document.h"

namespace tessarin {

// The four sections that say how stories leave the program: FTPTransmission,
// SMTPTransmission, Workflow and TextML. Each reader first puts its record back to the
// defaults, so that a second load of the configuration starts afresh, then reads the
// section (a missing section leaves the defaults) and shows or hides its tool-bar buttons.

// One FTPServer element. The address is its IPNumber attribute, else the element's text.
struct FtpServer {
    std::string IPNumber;
    std::string User;
    std::string Password;  // plain text, as the document holds it
    std::string FTPDirectory = "/";
    std::string TextsDirectory;
    std::string ImagesDirectory;
    std::string LogsDirectory;
    std::string ExportFormat = "TessarinML";
};

struct FtpTransmissionSettings {
    bool Visible = true;
    bool AddInitialsToFilenames = false;
    bool RemoteVisible = false;
    std::string Name = "Name";  // column captions of the remote list
    std::string Size = "Size";
    std::string LastAccessed = "Last Accessed";
    std::string Directory = "Folder";
    bool LogsEnabled = true;
    std::int32_t NumberOfDailyLogsToKeep = 10;
    bool ControlStoryBeforeTransmission = true;
    std::int32_t MaxStories = 0;  // 0: no limit
    std::int32_t MaxImages = 0;   // 0: no limit
    std::int32_t MinSizeImage = 0;
    std::int32_t MaxSizeImage = 0;

    // The servers in document order. Servers are numbered from 1: server N is servers[N-1].
    std::vector<FtpServer> servers;

    // Entry 0 of the user list: the identity's Author, which is no server. The configuration
    // load fills it once the identity is read; the reader leaves it as it is.
    std::string identityAuthor;

    // The user list: 0 is identityAuthor, N is the User of server N; empty when out of range.
    std::string UserEntry(std::size_t index) const;
};

enum class FtpServers { Read, Missing };

// Reads FTPTransmission: its attributes, then its FTPServer children. Shows SendFTP unless
// Visible is "false"; shows the story log controls (mnuDisplayLogs and the Logs button)
// unless LogsEnabled is "false". Returns Missing when the section holds no FTPServer: the caller
// reports " - missing tag 'FTPServer'" and skips the rest of the section (ExportFormats).
FtpServers ReadFtpTransmission(const XmlNode& section, FtpTransmissionSettings& settings,
                               WindowState& window);

struct SmtpRecipient {
    std::string address;  // the element's text
    std::string Name;     // its Name attribute
};

struct SmtpTransmissionSettings {
    bool Visible = false;
    bool Debug = false;
    std::string SMTPServerName;
    // The preferences' recipient first (when given and not empty), then the SMTPRecipient
    // elements in document order.
    std::vector<SmtpRecipient> recipients;
};

// Reads SMTPTransmission and shows SendMail only when Visible is "true".
// preferencesRecipient: the SMTPRecipient of the preferences' Identification section.
void ReadSmtpTransmission(const XmlNode& section,
                          const std::optional<std::string>& preferencesRecipient,
                          SmtpTransmissionSettings& settings, WindowState& window);

// A workflow destination: a user, a group or a layout system, whose name is also the name
// of its inbox under WorkflowDirectory.
struct WorkflowDestination {
    std::string name;
    // For Users/User: the first letter of Type ("U" user, "G" group, "L" layout; empty Type
    // gives "U"), and for "L" a blank and the destination's ExportFormat ("L NewsML").
    // For InterceptedUsers/User: Type as it stands.
    std::string type;
};

struct WorkflowSettings {
    bool Visible = false;
    bool ForceLogin = false;
    bool ClearLogsAllowed = false;
    bool TrackingEnabled = false;
    bool TrackingDisplayAllowed = false;
    bool TrackingClearAllowed = false;
    std::string PersonalTextsDirectory;
    std::string PersonalArchivesDirectory;
    std::string PersonalImagesDirectory;
    bool ControlImagesDirectory = true;
    std::string TrackingTextsDirectory;
    std::string TrackingImagesDirectory;
    std::string WorkflowDirectory;
    std::string UpdatesDirectory;
    std::string ExportTextsDirectory;
    std::string ExportImagesDirectory;

    std::vector<WorkflowDestination> preferredUsers;  // Users/User with Preferred "true"
    std::vector<WorkflowDestination> allUsers;        // every Users/User
    bool InterceptedUsersVisible = false;             // Visible of InterceptedUsers
    std::vector<WorkflowDestination> interceptedUsers;
};

// Reads Workflow. SendWorkflow and ReceiveWorkflow are shown when Visible is "true";
// InterceptWorkflow when, in addition, InterceptedUsers has Visible "true".
void ReadWorkflow(const XmlNode& section, WorkflowSettings& settings, WindowState& window);

struct TextMLSettings {
    bool TrackingEnabled = false;
    std::string ServerName = "localhost";
    std::string TrackingDocBaseName = "TessarinTracking";
    bool TrackingKeepVersions = true;  // KeepVersions of TrackingDocBaseName
    std::string ExportDocBaseName = "TessarinExport";
    bool ExportKeepVersions = true;  // KeepVersions of ExportDocBaseName
    std::string User = "admin";      // the server's user: attribute User
    std::string Password = "admin";  // its password: attribute Password
};

void ReadTextML(const XmlNode& section, TextMLSettings& settings);

}  // namespace tessarin
