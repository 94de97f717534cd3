#include "config/transmission_section.h"

#include <gtest/gtest.h>

#include <string_view>

#include "config/configuration_document.h"

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

std::string ServerLine(const FtpServer& server) {
    return Joined({server.IPNumber, server.User, server.Password, server.FTPDirectory,
                   server.TextsDirectory, server.ImagesDirectory, server.LogsDirectory,
                   server.ExportFormat});
}

std::string Captions(const FtpTransmissionSettings& settings) {
    return Joined({settings.Name, settings.Size, settings.LastAccessed, settings.Directory});
}

std::string Numbers(const FtpTransmissionSettings& settings) {
    return Joined({std::to_string(settings.NumberOfDailyLogsToKeep),
                   std::to_string(settings.MaxStories), std::to_string(settings.MaxImages),
                   std::to_string(settings.MinSizeImage), std::to_string(settings.MaxSizeImage)});
}

std::string Flags(const FtpTransmissionSettings& settings) {
    return Bits({settings.Visible, settings.AddInitialsToFilenames, settings.RemoteVisible,
                 settings.LogsEnabled, settings.ControlStoryBeforeTransmission});
}

TEST(FtpTransmissionSection, BareSectionTakesEveryDefault) {
    FtpTransmissionSettings settings;
    WindowState window;
    EXPECT_EQ(ReadFtp("<FTPTransmission><FTPServer/></FTPTransmission>", settings, window),
              FtpServers::Read);
    EXPECT_EQ(Flags(settings), "10011");
    EXPECT_EQ(Captions(settings), "Name|Size|Last Accessed|Folder");
    EXPECT_EQ(Numbers(settings), "10|0|0|0|0");
    ASSERT_EQ(settings.servers.size(), 1u);
    EXPECT_EQ(ServerLine(settings.servers[0]), "|||/||||TessarinML");
    EXPECT_EQ(Shown(window, {"SendFTP", "Logs"}), "11");
}

TEST(FtpTransmissionSection, ReadsAttributesAndServersInDocumentOrder) {
    FtpTransmissionSettings settings;
    settings.identityAuthor = "Jane Writer";
    WindowState window;
    ASSERT_EQ(ReadFtp(R"(<FTPTransmission Visible="false"
        AddInitialsToFilenames="true" RemoteVisible="true" Name="Nom" Size="Taille"
        LastAccessed="Date" Directory="Dossier" LogsEnabled="false"
        NumberOfDailyLogsToKeep="0" ControlStoryBeforeTransmission="false"
        MaxStories="12abc" MaxImages=" 7" MinSizeImage="-3.9" MaxSizeImage="2e3">
      <FTPServer IPNumber="ftp.one.test" User="ann" Password="p w" FTPDirectory="/in"
        TextsDirectory="texts" ImagesDirectory="pics" LogsDirectory="logs" ExportFormat="NITF"/>
      <Other/>
      <FTPServer IPNumber="10.0.0.2" User="bob"/>
    </FTPTransmission>)",
                      settings, window),
              FtpServers::Read);
    EXPECT_EQ(Flags(settings), "01100");
    EXPECT_EQ(Captions(settings), "Nom|Taille|Date|Dossier");
    EXPECT_EQ(Numbers(settings), "10|12|7|-3|2000");  // a NumberOfDailyLogsToKeep of 0 is unset
    ASSERT_EQ(settings.servers.size(), 2u);
    EXPECT_EQ(ServerLine(settings.servers[0]), "ftp.one.test|ann|p w|/in|texts|pics|logs|NITF");
    EXPECT_EQ(ServerLine(settings.servers[1]), "10.0.0.2|bob||/||||TessarinML");
    // The user list: entry 0 is the identity, servers count from 1.
    EXPECT_EQ(Joined({settings.UserEntry(0), settings.UserEntry(1), settings.UserEntry(2),
                      settings.UserEntry(3)}),
              "Jane Writer|ann|bob|");
    EXPECT_EQ(Shown(window, {"SendFTP", "Logs", "mnuDisplayLogs"}), "000");
}

TEST(FtpTransmissionSection, FlagsAndNumbersFollowTheExactWords) {
    FtpTransmissionSettings settings;
    WindowState window;
    ASSERT_EQ(ReadFtp(R"(<FTPTransmission Visible="False" AddInitialsToFilenames="TRUE"
        NumberOfDailyLogsToKeep="3 days"><FTPServer>ftp.text.test</FTPServer></FTPTransmission>)",
                      settings, window),
              FtpServers::Read);
    EXPECT_EQ(Flags(settings), "10011");
    EXPECT_EQ(settings.NumberOfDailyLogsToKeep, 3);
    EXPECT_TRUE(window.Control("SendFTP").visible);
    EXPECT_EQ(settings.servers[0].IPNumber, "ftp.text.test");  // the address as text
}

TEST(FtpTransmissionSection, NoServerIsReportedAfterTheAttributes) {
    FtpTransmissionSettings settings;
    WindowState window;
    EXPECT_EQ(ReadFtp(R"(<FTPTransmission Visible="false" MaxStories="4"/>)", settings, window),
              FtpServers::Missing);
    EXPECT_EQ(settings.MaxStories, 4);
    EXPECT_TRUE(settings.servers.empty());
    EXPECT_FALSE(window.Control("SendFTP").visible);
}

TEST(FtpTransmissionSection, SecondReadStartsAfreshButKeepsTheIdentity) {
    FtpTransmissionSettings settings;
    settings.identityAuthor = "Ann";
    WindowState window;
    ASSERT_EQ(ReadFtp(R"(<FTPTransmission MaxStories="5" Visible="false" LogsEnabled="false">
        <FTPServer User="a"/><FTPServer User="b"/></FTPTransmission>)",
                      settings, window),
              FtpServers::Read);
    ASSERT_EQ(
        ReadFtp(R"(<FTPTransmission><FTPServer User="c"/></FTPTransmission>)", settings, window),
        FtpServers::Read);
    ASSERT_EQ(settings.servers.size(), 1u);
    EXPECT_EQ(Joined({settings.servers[0].User, std::to_string(settings.MaxStories),
                      settings.UserEntry(0)}),
              "c|0|Ann");
    EXPECT_EQ(Shown(window, {"SendFTP", "Logs", "mnuDisplayLogs"}), "111");
}

std::string RecipientLines(const SmtpTransmissionSettings& settings) {
    std::vector<std::string> lines;
    for (const SmtpRecipient& recipient : settings.recipients)
        lines.push_back(recipient.Name + " <" + recipient.address + ">");
    return Joined(lines);
}

TEST(SmtpTransmissionSection, MissingSectionHidesTheMailButton) {
    SmtpTransmissionSettings settings;
    WindowState window;
    window.Control("SendMail").visible = true;
    ReadSmtpTransmission(XmlNode(), std::string("desk@paper.test"), settings, window);
    EXPECT_EQ(Bits({settings.Visible, settings.Debug}), "00");
    EXPECT_EQ(settings.SMTPServerName, "");
    EXPECT_EQ(RecipientLines(settings), " <desk@paper.test>");
    EXPECT_FALSE(window.Control("SendMail").visible);
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
    EXPECT_EQ(Bits({settings.Visible, settings.Debug}), "11");
    EXPECT_EQ(settings.SMTPServerName, "mail.paper.test");
    EXPECT_EQ(RecipientLines(settings),
              " <me@home.test>|Desk <desk@paper.test>|Photo <photo@paper.test>");
    EXPECT_TRUE(window.Control("SendMail").visible);

    // Without a preferences recipient (or an empty one) the configuration's come alone, and
    // the list does not grow on a second read.
    for (const std::optional<std::string>& recipient :
         {std::optional<std::string>(""), std::optional<std::string>()}) {
        ReadSmtpTransmission(document.DocumentElement(), recipient, settings, window);
        EXPECT_EQ(RecipientLines(settings), "Desk <desk@paper.test>|Photo <photo@paper.test>");
    }
}

std::string DestinationLines(const std::vector<WorkflowDestination>& destinations) {
    std::vector<std::string> lines;
    for (const WorkflowDestination& destination : destinations)
        lines.push_back(destination.name + ":" + destination.type);
    return Joined(lines);
}

TEST(WorkflowSection, MissingSectionTurnsTheWorkflowOff) {
    WorkflowSettings settings;
    settings.Visible = true;
    settings.WorkflowDirectory = "/old";
    settings.allUsers.push_back({"old", "U"});
    WindowState window;
    ReadWorkflow(XmlNode(), settings, window);
    EXPECT_EQ(Bits({settings.Visible, settings.ForceLogin, settings.ControlImagesDirectory}),
              "001");
    EXPECT_EQ(settings.WorkflowDirectory, "");
    EXPECT_TRUE(settings.allUsers.empty());
    EXPECT_EQ(Shown(window, {"SendWorkflow", "ReceiveWorkflow", "InterceptWorkflow"}), "000");
}

TEST(WorkflowSection, ReadsEveryAttribute) {
    const XmlDocument document = ParseSection(R"(<Workflow Visible="true" ForceLogin="true"
        ClearLogsAllowed="true" TrackingEnabled="true" TrackingDisplayAllowed="true"
        TrackingClearAllowed="true" PersonalTextsDirectory="/p/texts"
        PersonalArchivesDirectory="/p/archives" PersonalImagesDirectory="/p/images"
        ControlImagesDirectory="false" TrackingTextsDirectory="/t/texts"
        TrackingImagesDirectory="/t/images" WorkflowDirectory="/w" UpdatesDirectory="/u"
        ExportTextsDirectory="/e/texts" ExportImagesDirectory="/e/images"/>)");
    WorkflowSettings settings;
    WindowState window;
    ReadWorkflow(document.DocumentElement(), settings, window);
    EXPECT_EQ(Bits({settings.Visible, settings.ForceLogin, settings.ClearLogsAllowed,
                    settings.TrackingEnabled, settings.TrackingDisplayAllowed,
                    settings.TrackingClearAllowed, settings.ControlImagesDirectory}),
              "1111110");
    EXPECT_EQ(Joined({settings.PersonalTextsDirectory, settings.PersonalArchivesDirectory,
                      settings.PersonalImagesDirectory, settings.TrackingTextsDirectory,
                      settings.TrackingImagesDirectory, settings.WorkflowDirectory,
                      settings.UpdatesDirectory, settings.ExportTextsDirectory,
                      settings.ExportImagesDirectory}),
              "/p/texts|/p/archives|/p/images|/t/texts|/t/images|/w|/u|/e/texts|/e/images");
    // No InterceptedUsers: no intercept button.
    EXPECT_EQ(Shown(window, {"SendWorkflow", "ReceiveWorkflow", "InterceptWorkflow"}), "110");
}

TEST(WorkflowSection, DestinationsKeepTheFirstLetterOfTheirType) {
    const XmlDocument document = ParseSection(R"(<Workflow Visible="true"><Users>
      <User Preferred="true">ann</User>
      <User Preferred="True" Type="Group">desk</User>
      <User Preferred="false" Type="Layout" ExportFormat="InDesign">layout</User>
      <User Type="user">bob</User>
      <User Type="L">bare</User>
      <User Preferred="true" Type="Éditeurs">édition</User>
    </Users></Workflow>)");
    WorkflowSettings settings;
    WindowState window;
    // A second read gives the same lists, not doubled ones.
    for (int reading = 0; reading < 2; ++reading)
        ReadWorkflow(document.DocumentElement(), settings, window);
    EXPECT_EQ(DestinationLines(settings.allUsers),
              "ann:U|desk:G|layout:L InDesign|bob:u|bare:L |édition:É");
    EXPECT_EQ(DestinationLines(settings.preferredUsers), "ann:U|édition:É");
}

TEST(WorkflowSection, InterceptedUsersDecideTheInterceptButton) {
    const XmlDocument shown = ParseSection(R"(<Workflow Visible="true">
      <InterceptedUsers Visible="true">
        <User Type="Group">desk</User><User Type="user">ann</User><User>bob</User>
      </InterceptedUsers></Workflow>)");
    WorkflowSettings settings;
    WindowState window;
    ReadWorkflow(shown.DocumentElement(), settings, window);
    EXPECT_TRUE(settings.InterceptedUsersVisible);
    // The type as it stands.
    EXPECT_EQ(DestinationLines(settings.interceptedUsers), "desk:Group|ann:user|bob:");
    EXPECT_TRUE(window.Control("InterceptWorkflow").visible);

    const XmlDocument workflowOff =
        ParseSection(R"(<Workflow><InterceptedUsers Visible="true"/></Workflow>)");
    ReadWorkflow(workflowOff.DocumentElement(), settings, window);
    EXPECT_EQ(Shown(window, {"InterceptWorkflow", "SendWorkflow"}), "00");
}

std::string TextMLLine(const TextMLSettings& settings) {
    return Joined({settings.TrackingEnabled ? "tracking" : "", settings.ServerName,
                   settings.TrackingDocBaseName, settings.TrackingKeepVersions ? "keep" : "",
                   settings.ExportDocBaseName, settings.ExportKeepVersions ? "keep" : ""});
}

TEST(TextMLSection, DefaultsOrItems) {
    TextMLSettings settings;
    settings.ServerName = "old";
    ReadTextML(XmlNode(), settings);
    EXPECT_EQ(TextMLLine(settings), "|localhost|TessarinTracking|keep|TessarinExport|keep");
    // Each row: the section, and what it gives; empty items take the defaults.
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"<TextML><ServerName/><TrackingDocBaseName></TrackingDocBaseName></TextML>",
         "|localhost|TessarinTracking|keep|TessarinExport|keep"},
        {R"(<TextML TrackingEnabled="true"><ServerName>repo.paper.test</ServerName>
            <TrackingDocBaseName KeepVersions="false">Tracks</TrackingDocBaseName>
            <ExportDocBaseName KeepVersions="False">Exports</ExportDocBaseName></TextML>)",
         "tracking|repo.paper.test|Tracks||Exports|keep"}};
    for (const auto& [section, expected] : cases) {
        SCOPED_TRACE(section);
        ReadTextML(ParseSection(section).DocumentElement(), settings);
        EXPECT_EQ(TextMLLine(settings), expected);
    }
}

}  // namespace
}  // namespace tessarin
