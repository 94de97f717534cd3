#include "config/transmission_section.h"

#include <string_view>

#include "common/reading_idiom.h"
#include "common/utf8.h"

namespace tessarin {

namespace {

void ShowControl(WindowState& window, std::string_view name, bool visible) {
    window.Control(name).visible = visible;
}

FtpServer ReadFtpServer(const XmlNode& element) {
    FtpServer server;
    // The address stands in IPNumber; a server written with the address as the element's
    // text is read too.
    server.IPNumber = TextOr(element.Attribute("IPNumber"), element.Text());
    server.User = element.Attribute("User");
    server.Password = element.Attribute("Password");
    server.FTPDirectory = TextOr(element.Attribute("FTPDirectory"), "/");
    server.TextsDirectory = element.Attribute("TextsDirectory");
    server.ImagesDirectory = element.Attribute("ImagesDirectory");
    server.LogsDirectory = element.Attribute("LogsDirectory");
    server.ExportFormat = TextOr(element.Attribute("ExportFormat"), "TessarinML");
    return server;
}

// The type of a Users/User destination: its first letter, "U" when empty, and for a
// layout system ("L") a blank and the export that it receives.
std::string DestinationType(const XmlNode& user) {
    const std::string type = user.Attribute("Type");
    if (type.empty()) return "U";
    std::string firstLetter = type.substr(0, ReadLenientCharacter(type, 0).length);
    if (firstLetter == "L") return "L " + user.Attribute("ExportFormat");
    return firstLetter;
}

}  // namespace

std::string FtpTransmissionSettings::UserEntry(std::size_t index) const {
    if (index == 0) return identityAuthor;
    if (index > servers.size()) return {};
    return servers[index - 1].User;
}

FtpServers ReadFtpTransmission(const XmlNode& section, FtpTransmissionSettings& settings,
                               WindowState& window) {
    FtpTransmissionSettings fresh;
    fresh.identityAuthor = std::move(settings.identityAuthor);
    settings = std::move(fresh);

    settings.Visible = FlagDefaultTrue(section.Attribute("Visible"));
    settings.AddInitialsToFilenames = FlagDefaultFalse(section.Attribute("AddInitialsToFilenames"));
    settings.RemoteVisible = FlagDefaultFalse(section.Attribute("RemoteVisible"));
    settings.Name = TextOr(section.Attribute("Name"), "Name");
    settings.Size = TextOr(section.Attribute("Size"), "Size");
    settings.LastAccessed = TextOr(section.Attribute("LastAccessed"), "Last Accessed");
    settings.Directory = TextOr(section.Attribute("Directory"), "Folder");
    settings.LogsEnabled = FlagDefaultTrue(section.Attribute("LogsEnabled"));
    settings.NumberOfDailyLogsToKeep = NumberOr(section.Attribute("NumberOfDailyLogsToKeep"), 10);
    if (settings.NumberOfDailyLogsToKeep == 0) settings.NumberOfDailyLogsToKeep = 10;
    settings.ControlStoryBeforeTransmission =
        FlagDefaultTrue(section.Attribute("ControlStoryBeforeTransmission"));
    settings.MaxStories = NumberOr(section.Attribute("MaxStories"), 0);
    settings.MaxImages = NumberOr(section.Attribute("MaxImages"), 0);
    settings.MinSizeImage = NumberOr(section.Attribute("MinSizeImage"), 0);
    settings.MaxSizeImage = NumberOr(section.Attribute("MaxSizeImage"), 0);

    ShowControl(window, "SendFTP", settings.Visible);
    ShowControl(window, "mnuDisplayLogs", settings.LogsEnabled);
    ShowControl(window, "Logs", settings.LogsEnabled);

    const std::vector<XmlNode> elements = section.SelectNodes("FTPServer");
    if (elements.empty()) return FtpServers::Missing;
    for (const XmlNode& element : elements)
        settings.servers.push_back(ReadFtpServer(element));
    return FtpServers::Read;
}

void ReadSmtpTransmission(const XmlNode& section,
                          const std::optional<std::string>& preferencesRecipient,
                          SmtpTransmissionSettings& settings, WindowState& window) {
    settings = {};
    if (preferencesRecipient && !preferencesRecipient->empty()) {
        settings.recipients.push_back({*preferencesRecipient, {}});
    }
    if (section) {
        settings.Visible = FlagDefaultFalse(section.Attribute("Visible"));
        settings.Debug = FlagDefaultFalse(section.Attribute("Debug"));
        settings.SMTPServerName = section.Attribute("SMTPServerName");
        for (const XmlNode& recipient : section.SelectNodes("SMTPRecipient")) {
            settings.recipients.push_back({recipient.Text(), recipient.Attribute("Name")});
        }
    }
    ShowControl(window, "SendMail", settings.Visible);
}

void ReadWorkflow(const XmlNode& section, WorkflowSettings& settings, WindowState& window) {
    settings = {};
    settings.Visible = FlagDefaultFalse(section.Attribute("Visible"));
    settings.ForceLogin = FlagDefaultFalse(section.Attribute("ForceLogin"));
    settings.ClearLogsAllowed = FlagDefaultFalse(section.Attribute("ClearLogsAllowed"));
    settings.TrackingEnabled = FlagDefaultFalse(section.Attribute("TrackingEnabled"));
    settings.TrackingDisplayAllowed = FlagDefaultFalse(section.Attribute("TrackingDisplayAllowed"));
    settings.TrackingClearAllowed = FlagDefaultFalse(section.Attribute("TrackingClearAllowed"));
    settings.PersonalTextsDirectory = section.Attribute("PersonalTextsDirectory");
    settings.PersonalArchivesDirectory = section.Attribute("PersonalArchivesDirectory");
    settings.PersonalImagesDirectory = section.Attribute("PersonalImagesDirectory");
    settings.ControlImagesDirectory = FlagDefaultTrue(section.Attribute("ControlImagesDirectory"));
    settings.TrackingTextsDirectory = section.Attribute("TrackingTextsDirectory");
    settings.TrackingImagesDirectory = section.Attribute("TrackingImagesDirectory");
    settings.WorkflowDirectory = section.Attribute("WorkflowDirectory");
    settings.UpdatesDirectory = section.Attribute("UpdatesDirectory");
    settings.ExportTextsDirectory = section.Attribute("ExportTextsDirectory");
    settings.ExportImagesDirectory = section.Attribute("ExportImagesDirectory");

    for (const XmlNode& user : section.SelectNodes("Users/User")) {
        WorkflowDestination destination{user.Text(), DestinationType(user)};
        if (FlagDefaultFalse(user.Attribute("Preferred"))) {
            settings.preferredUsers.push_back(destination);
        }
        settings.allUsers.push_back(std::move(destination));
    }
    const XmlNode intercepted = section.SelectSingleNode("InterceptedUsers");
    settings.InterceptedUsersVisible = FlagDefaultFalse(intercepted.Attribute("Visible"));
    for (const XmlNode& user : intercepted.SelectNodes("User")) {
        settings.interceptedUsers.push_back({user.Text(), user.Attribute("Type")});
    }

    ShowControl(window, "SendWorkflow", settings.Visible);
    ShowControl(window, "ReceiveWorkflow", settings.Visible);
    ShowControl(window, "InterceptWorkflow", settings.Visible && settings.InterceptedUsersVisible);
}

void ReadTextML(const XmlNode& section, TextMLSettings& settings) {
    settings = {};
    settings.TrackingEnabled = FlagDefaultFalse(section.Attribute("TrackingEnabled"));
    settings.ServerName = TextOr(section.SelectSingleNode("ServerName").Text(), "localhost");
    const XmlNode tracking = section.SelectSingleNode("TrackingDocBaseName");
    settings.TrackingDocBaseName = TextOr(tracking.Text(), "TessarinTracking");
    settings.TrackingKeepVersions = FlagDefaultTrue(tracking.Attribute("KeepVersions"));
    const XmlNode exportBase = section.SelectSingleNode("ExportDocBaseName");
    settings.ExportDocBaseName = TextOr(exportBase.Text(), "TessarinExport");
    settings.ExportKeepVersions = FlagDefaultTrue(exportBase.Attribute("KeepVersions"));
    settings.User = TextOr(section.Attribute("User"), "admin");
    settings.Password = TextOr(section.Attribute("Password"), "admin");
}

}  // namespace tessarin
