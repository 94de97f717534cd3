#include "config/transmission_section.h"

#include <gtest/gtest.h>

#include <string_view>

#include "config/section_reading.h"

namespace tessarin {
namespace {

using testing::Bits;
using testing::Joined;
using testing::ParseSection;
using testing::Shown;

// Reads the FTPTransmission section of xml into settings and window.
FtpServers ReadFtp(std::string_view xml, FtpTransmissionSettings& settings, WindowState& window) {
    return ReadFtpTransmission(ParseSection(xml).DocumentElement(), settings, window);
}

// What a reading of FTPTransmission gives, one line each: the flags Visible,
// AddInitialsToFilenames, RemoteVisible, LogsEnabled and ControlStoryBeforeTransmission; the
// column captions; NumberOfDailyLogsToKeep, MaxStories, MaxImages, MinSizeImage and
// MaxSizeImage; each server; which of SendFTP, Logs and mnuDisplayLogs show.
std::vector<std::string> FtpLines(const FtpTransmissionSettings& settings, WindowState& window) {
    const FtpTransmissionSettings& s = settings;
    std::vector<std::string> lines = {
        Bits({s.Visible, s.AddInitialsToFilenames, s.RemoteVisible, s.LogsEnabled,
              s.ControlStoryBeforeTransmission}),
        Joined({s.Name, s.Size, s.LastAccessed, s.Directory}),
        Joined({std::to_string(s.NumberOfDailyLogsToKeep), std::to_string(s.MaxStories),
                std::to_string(s.MaxImages), std::to_string(s.MinSizeImage),
                std::to_string(s.MaxSizeImage)})};
    for (const FtpServer& server : s.servers) {
        lines.push_back(Joined({server.IPNumber, server.User, server.Password, server.FTPDirectory,
                                server.TextsDirectory, server.ImagesDirectory, server.LogsDirectory,
                                server.ExportFormat}));
    }
    lines.push_back(Shown(window, {"SendFTP", "Logs", "mnuDisplayLogs"}));
    return lines;
}

// The rows are read one after the other into the same settings and window: each reading
// starts afresh (no value or server of the row before stays) but keeps the user's identity.
TEST(FtpTransmissionSection, AttributesAndServersOrTheirDefaults) {
    struct Case {
        std::string_view section;
        FtpServers servers;
        std::vector<std::string> lines;
    };
    // Flags change only on the exact opposite word; numbers are read up to the first character
    // that is not part of a number, and a NumberOfDailyLogsToKeep of 0 counts as not set.
    const Case cases[] = {
        {R"(<FTPTransmission Visible="false" AddInitialsToFilenames="true" RemoteVisible="true"
            Name="Nom" Size="Taille" LastAccessed="Date" Directory="Dossier" LogsEnabled="false"
            NumberOfDailyLogsToKeep="0" ControlStoryBeforeTransmission="false"
            MaxStories="12abc" MaxImages=" 7" MinSizeImage="-3.9" MaxSizeImage="2e3">
          <FTPServer IPNumber="ftp.one.test" User="ann" Password="p w" FTPDirectory="/in"
            TextsDirectory="texts" ImagesDirectory="pics" LogsDirectory="logs" ExportFormat="NITF"/>
          <Other/><FTPServer IPNumber="10.0.0.2" User="bob"/></FTPTransmission>)",
         FtpServers::Read,
         {"01100", "Nom|Taille|Date|Dossier", "10|12|7|-3|2000",
          "ftp.one.test|ann|p w|/in|texts|pics|logs|NITF", "10.0.0.2|bob||/||||TessarinML", "000"}},
        {"<FTPTransmission><FTPServer/></FTPTransmission>",
         FtpServers::Read,
         {"10011", "Name|Size|Last Accessed|Folder", "10|0|0|0|0", "|||/||||TessarinML", "111"}},
        // A server written with its address as text; "False" is not "false".
        {R"(<FTPTransmission Visible="False" NumberOfDailyLogsToKeep="3 days">
            <FTPServer>ftp.text.test</FTPServer></FTPTransmission>)",
         FtpServers::Read,
         {"10011", "Name|Size|Last Accessed|Folder", "3|0|0|0|0", "ftp.text.test|||/||||TessarinML",
          "111"}},
        // No server is reported after the attributes are read.
        {R"(<FTPTransmission Visible="false" MaxStories="4"/>)",
         FtpServers::Missing,
         {"00011", "Name|Size|Last Accessed|Folder", "10|4|0|0|0", "011"}}};
    FtpTransmissionSettings settings;
    settings.identityAuthor = "Ann";
    WindowState window;
    for (const Case& test : cases) {
        SCOPED_TRACE(test.section);
        EXPECT_EQ(ReadFtp(test.section, settings, window), test.servers);
        EXPECT_EQ(FtpLines(settings, window), test.lines);
        EXPECT_EQ(settings.UserEntry(0), "Ann");
    }
    EXPECT_EQ(settings.UserEntry(1), "");  // no server left to name a user
}

// Visible and Debug, the server, then each recipient as "Name <address>".
std::string SmtpLine(const SmtpTransmissionSettings& settings) {
    std::vector<std::string> parts = {Bits({settings.Visible, settings.Debug}),
                                      settings.SMTPServerName};
    for (const SmtpRecipient& recipient : settings.recipients)
        parts.push_back(recipient.Name + " <" + recipient.address + ">");
    return Joined(parts);
}

TEST(SmtpTransmissionSection, PreferencesRecipientComesFirst) {
    const XmlDocument document = ParseSection(R"(<SMTPTransmission Visible="true" Debug="true"
        SMTPServerName="mail.paper.test">
      <SMTPRecipient Name="Desk">desk@paper.test</SMTPRecipient>
      <SMTPRecipient Name="Photo">photo@paper.test</SMTPRecipient>
    </SMTPTransmission>)");
    SmtpTransmissionSettings settings;
    WindowState window;
    ReadSmtpTransmission(document.DocumentElement(), std::string("me@home.test"), settings, window);
    EXPECT_EQ(SmtpLine(settings),
              "11|mail.paper.test| <me@home.test>|Desk <desk@paper.test>|Photo <photo@paper.test>");
    EXPECT_TRUE(window.Control("SendMail").visible);

    // Without a preferences recipient (or an empty one) the configuration's come alone, and
    // the list does not grow on a second read.
    for (const std::optional<std::string>& recipient :
         {std::optional<std::string>(""), std::optional<std::string>()}) {
        ReadSmtpTransmission(document.DocumentElement(), recipient, settings, window);
        EXPECT_EQ(SmtpLine(settings),
                  "11|mail.paper.test|Desk <desk@paper.test>|Photo <photo@paper.test>");
    }

    // A missing section hides the mail button.
    ReadSmtpTransmission(XmlNode(), std::string("desk@paper.test"), settings, window);
    EXPECT_EQ(SmtpLine(settings), "00|| <desk@paper.test>");
    EXPECT_FALSE(window.Control("SendMail").visible);
}

std::string DestinationLines(const std::vector<WorkflowDestination>& destinations) {
    std::vector<std::string> lines;
    for (const WorkflowDestination& destination : destinations)
        lines.push_back(destination.name + ":" + destination.type);
    return Joined(lines);
}

std::string WorkflowFlags(const WorkflowSettings& s) {
    return Bits({s.Visible, s.ForceLogin, s.ClearLogsAllowed, s.TrackingEnabled,
                 s.TrackingDisplayAllowed, s.TrackingClearAllowed, s.ControlImagesDirectory,
                 s.InterceptedUsersVisible});
}

std::string WorkflowDirectories(const WorkflowSettings& s) {
    return Joined({s.PersonalTextsDirectory, s.PersonalArchivesDirectory, s.PersonalImagesDirectory,
                   s.TrackingTextsDirectory, s.TrackingImagesDirectory, s.WorkflowDirectory,
                   s.UpdatesDirectory, s.ExportTextsDirectory, s.ExportImagesDirectory});
}

TEST(WorkflowSection, ReadsEveryAttributeAndAMissingSectionTurnsTheWorkflowOff) {
    const XmlDocument document = ParseSection(R"(<Workflow Visible="true" ForceLogin="true"
        ClearLogsAllowed="true" TrackingEnabled="true" TrackingDisplayAllowed="true"
        TrackingClearAllowed="true" PersonalTextsDirectory="/p/texts"
        PersonalArchivesDirectory="/p/archives" PersonalImagesDirectory="/p/images"
        ControlImagesDirectory="false" TrackingTextsDirectory="/t/texts"
        TrackingImagesDirectory="/t/images" WorkflowDirectory="/w" UpdatesDirectory="/u"
        ExportTextsDirectory="/e/texts" ExportImagesDirectory="/e/images"><Users>
      <User Preferred="true">ann</User><User Preferred="True" Type="Group">desk</User>
      <User Preferred="false" Type="Layout" ExportFormat="InDesign">layout</User>
      <User Type="user">bob</User><User Type="L">bare</User>
      <User Preferred="true" Type="Éditeurs">édition</User></Users>
      <InterceptedUsers Visible="true">
        <User Type="Group">desk</User><User Type="user">ann</User><User>bob</User>
      </InterceptedUsers></Workflow>)");
    WorkflowSettings settings;
    WindowState window;
    // A second read gives the same lists, not doubled ones.
    for (int reading = 0; reading < 2; ++reading)
        ReadWorkflow(document.DocumentElement(), settings, window);
    EXPECT_EQ(WorkflowFlags(settings), "11111101");
    EXPECT_EQ(WorkflowDirectories(settings),
              "/p/texts|/p/archives|/p/images|/t/texts|/t/images|/w|/u|/e/texts|/e/images");
    // Users keep the first letter of their type, intercepted users the type as it stands.
    EXPECT_EQ(DestinationLines(settings.allUsers),
              "ann:U|desk:G|layout:L InDesign|bob:u|bare:L |édition:É");
    EXPECT_EQ(DestinationLines(settings.preferredUsers), "ann:U|édition:É");
    EXPECT_EQ(DestinationLines(settings.interceptedUsers), "desk:Group|ann:user|bob:");

    ReadWorkflow(XmlNode(), settings, window);
    EXPECT_EQ(WorkflowFlags(settings), "00000010");
    EXPECT_EQ(WorkflowDirectories(settings), "||||||||");
    EXPECT_TRUE(settings.allUsers.empty());
    EXPECT_EQ(Shown(window, {"SendWorkflow", "ReceiveWorkflow", "InterceptWorkflow"}), "000");
}

TEST(WorkflowSection, VisibleWorkflowAndInterceptedUsersDecideTheButtons) {
    // Each row: the section, and which of SendWorkflow, ReceiveWorkflow and InterceptWorkflow
    // show.
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"(<Workflow Visible="true"><InterceptedUsers Visible="true"/></Workflow>)", "111"},
        {R"(<Workflow Visible="true"><InterceptedUsers Visible="True"/></Workflow>)", "110"},
        {R"(<Workflow Visible="true"/>)", "110"},
        {R"(<Workflow><InterceptedUsers Visible="true"/></Workflow>)", "000"}};
    WorkflowSettings settings;
    WindowState window;
    for (const auto& [section, shown] : cases) {
        SCOPED_TRACE(section);
        ReadWorkflow(ParseSection(section).DocumentElement(), settings, window);
        EXPECT_EQ(Shown(window, {"SendWorkflow", "ReceiveWorkflow", "InterceptWorkflow"}), shown);
    }
}

std::string TextMLLine(const TextMLSettings& settings) {
    return Joined({settings.TrackingEnabled ? "tracking" : "", settings.ServerName,
                   settings.TrackingDocBaseName, settings.TrackingKeepVersions ? "keep" : "",
                   settings.ExportDocBaseName, settings.ExportKeepVersions ? "keep" : "",
                   settings.User, settings.Password});
}

TEST(TextMLSection, DefaultsOrItems) {
    TextMLSettings settings;
    settings.ServerName = "old";
    ReadTextML(XmlNode(), settings);
    EXPECT_EQ(TextMLLine(settings),
              "|localhost|TessarinTracking|keep|TessarinExport|keep|admin|admin");
    // Each row: the section, and what it gives; empty items take the defaults.
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"<TextML><ServerName/><TrackingDocBaseName></TrackingDocBaseName></TextML>",
         "|localhost|TessarinTracking|keep|TessarinExport|keep|admin|admin"},
        {R"(<TextML TrackingEnabled="true" User="desk" Password="s3"><ServerName>repo.paper.test</ServerName>
            <TrackingDocBaseName KeepVersions="false">Tracks</TrackingDocBaseName>
            <ExportDocBaseName KeepVersions="False">Exports</ExportDocBaseName></TextML>)",
         "tracking|repo.paper.test|Tracks||Exports|keep|desk|s3"}};
    for (const auto& [section, expected] : cases) {
        SCOPED_TRACE(section);
        ReadTextML(ParseSection(section).DocumentElement(), settings);
        EXPECT_EQ(TextMLLine(settings), expected);
    }
}

}  // namespace
}  // namespace tessarin
