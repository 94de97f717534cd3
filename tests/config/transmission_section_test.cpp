#include "config/transmission_section.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tessarin {
namespace {

XmlDocument Parse(std::string_view xml) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << xml;
    return document;
}

TEST(FtpTransmissionSection, BareSectionTakesEveryDefault) {
    const XmlDocument document = Parse("<FTPTransmission><FTPServer/></FTPTransmission>");
    FtpTransmissionSettings settings;
    WindowState window;
    EXPECT_EQ(ReadFtpTransmission(document.DocumentElement(), settings, window), FtpServers::Read);

    EXPECT_TRUE(settings.Visible);
    EXPECT_FALSE(settings.AddInitialsToFilenames);
    EXPECT_FALSE(settings.RemoteVisible);
    EXPECT_EQ(settings.Name, "Name");
    EXPECT_EQ(settings.Size, "Size");
    EXPECT_EQ(settings.LastAccessed, "Last Accessed");
    EXPECT_EQ(settings.Directory, "Folder");
    EXPECT_TRUE(settings.LogsEnabled);
    EXPECT_EQ(settings.NumberOfDailyLogsToKeep, 10);
    EXPECT_TRUE(settings.ControlStoryBeforeTransmission);
    EXPECT_EQ(settings.MaxStories, 0);
    EXPECT_EQ(settings.MaxImages, 0);
    EXPECT_EQ(settings.MinSizeImage, 0);
    EXPECT_EQ(settings.MaxSizeImage, 0);
    ASSERT_EQ(settings.servers.size(), 1u);
    EXPECT_EQ(settings.servers[0].IPNumber, "");
    EXPECT_EQ(settings.servers[0].FTPDirectory, "/");
    EXPECT_EQ(settings.servers[0].ExportFormat, "TessarinML");
    EXPECT_TRUE(window.Control("SendFTP").visible);
    EXPECT_TRUE(window.Control("Logs").visible);
}

TEST(FtpTransmissionSection, ReadsAttributesAndServersInDocumentOrder) {
    const XmlDocument document = Parse(R"(<FTPTransmission Visible="false"
        AddInitialsToFilenames="true" RemoteVisible="true" Name="Nom" Size="Taille"
        LastAccessed="Date" Directory="Dossier" LogsEnabled="false"
        NumberOfDailyLogsToKeep="0" ControlStoryBeforeTransmission="false"
        MaxStories="12abc" MaxImages=" 7" MinSizeImage="-3.9" MaxSizeImage="2e3">
      <FTPServer IPNumber="ftp.one.test" User="ann" Password="p w" FTPDirectory="/in"
        TextsDirectory="texts" ImagesDirectory="pics" LogsDirectory="logs" ExportFormat="NITF"/>
      <Other/>
      <FTPServer IPNumber="10.0.0.2" User="bob"/>
    </FTPTransmission>)");
    FtpTransmissionSettings settings;
    settings.identityAuthor = "Jane Writer";
    WindowState window;
    EXPECT_EQ(ReadFtpTransmission(document.DocumentElement(), settings, window), FtpServers::Read);

    EXPECT_FALSE(settings.Visible);
    EXPECT_TRUE(settings.AddInitialsToFilenames);
    EXPECT_TRUE(settings.RemoteVisible);
    EXPECT_EQ(settings.Name, "Nom");
    EXPECT_EQ(settings.Size, "Taille");
    EXPECT_EQ(settings.LastAccessed, "Date");
    EXPECT_EQ(settings.Directory, "Dossier");
    EXPECT_FALSE(settings.LogsEnabled);
    EXPECT_EQ(settings.NumberOfDailyLogsToKeep, 10);  // 0 counts as not set
    EXPECT_FALSE(settings.ControlStoryBeforeTransmission);
    EXPECT_EQ(settings.MaxStories, 12);
    EXPECT_EQ(settings.MaxImages, 7);
    EXPECT_EQ(settings.MinSizeImage, -3);
    EXPECT_EQ(settings.MaxSizeImage, 2000);

    ASSERT_EQ(settings.servers.size(), 2u);
    const FtpServer& first = settings.servers[0];
    EXPECT_EQ(first.IPNumber, "ftp.one.test");
    EXPECT_EQ(first.User, "ann");
    EXPECT_EQ(first.Password, "p w");
    EXPECT_EQ(first.FTPDirectory, "/in");
    EXPECT_EQ(first.TextsDirectory, "texts");
    EXPECT_EQ(first.ImagesDirectory, "pics");
    EXPECT_EQ(first.LogsDirectory, "logs");
    EXPECT_EQ(first.ExportFormat, "NITF");
    EXPECT_EQ(settings.servers[1].IPNumber, "10.0.0.2");
    EXPECT_EQ(settings.servers[1].FTPDirectory, "/");
    EXPECT_EQ(settings.servers[1].ExportFormat, "TessarinML");

    // The user list: entry 0 is the identity, servers count from 1.
    EXPECT_EQ(settings.UserEntry(0), "Jane Writer");
    EXPECT_EQ(settings.UserEntry(1), "ann");
    EXPECT_EQ(settings.UserEntry(2), "bob");
    EXPECT_EQ(settings.UserEntry(3), "");

    EXPECT_FALSE(window.Control("SendFTP").visible);
    EXPECT_FALSE(window.Control("Logs").visible);
    EXPECT_FALSE(window.Control("mnuDisplayLogs").visible);
}

TEST(FtpTransmissionSection, FlagsAndNumbersFollowTheExactWords) {
    const XmlDocument document = Parse(R"(<FTPTransmission Visible="False"
        AddInitialsToFilenames="TRUE" NumberOfDailyLogsToKeep="3 days">
      <FTPServer>ftp.text.test</FTPServer></FTPTransmission>)");
    FtpTransmissionSettings settings;
    WindowState window;
    ASSERT_EQ(ReadFtpTransmission(document.DocumentElement(), settings, window), FtpServers::Read);
    EXPECT_TRUE(settings.Visible);
    EXPECT_FALSE(settings.AddInitialsToFilenames);
    EXPECT_EQ(settings.NumberOfDailyLogsToKeep, 3);
    EXPECT_TRUE(window.Control("SendFTP").visible);
    // A server written with its address as text.
    EXPECT_EQ(settings.servers[0].IPNumber, "ftp.text.test");
}

TEST(FtpTransmissionSection, NoServerIsReportedAfterTheAttributes) {
    const XmlDocument document = Parse(R"(<FTPTransmission Visible="false" MaxStories="4"/>)");
    FtpTransmissionSettings settings;
    WindowState window;
    EXPECT_EQ(ReadFtpTransmission(document.DocumentElement(), settings, window),
              FtpServers::Missing);
    EXPECT_EQ(settings.MaxStories, 4);
    EXPECT_TRUE(settings.servers.empty());
    EXPECT_FALSE(window.Control("SendFTP").visible);
}

TEST(FtpTransmissionSection, SecondReadStartsAfreshButKeepsTheIdentity) {
    const XmlDocument first = Parse(R"(<FTPTransmission MaxStories="5" Visible="false"
        LogsEnabled="false">
        <FTPServer User="a"/><FTPServer User="b"/></FTPTransmission>)");
    const XmlDocument second = Parse(R"(<FTPTransmission><FTPServer User="c"/></FTPTransmission>)");
    FtpTransmissionSettings settings;
    settings.identityAuthor = "Ann";
    WindowState window;
    ASSERT_EQ(ReadFtpTransmission(first.DocumentElement(), settings, window), FtpServers::Read);
    ASSERT_EQ(ReadFtpTransmission(second.DocumentElement(), settings, window), FtpServers::Read);
    ASSERT_EQ(settings.servers.size(), 1u);
    EXPECT_EQ(settings.servers[0].User, "c");
    EXPECT_EQ(settings.MaxStories, 0);
    EXPECT_EQ(settings.UserEntry(0), "Ann");
    EXPECT_TRUE(window.Control("SendFTP").visible);
    EXPECT_TRUE(window.Control("Logs").visible);
    EXPECT_TRUE(window.Control("mnuDisplayLogs").visible);
}

TEST(SmtpTransmissionSection, MissingSectionHidesTheMailButton) {
    SmtpTransmissionSettings settings;
    WindowState window;
    window.Control("SendMail").visible = true;
    ReadSmtpTransmission(XmlNode(), std::string("desk@paper.test"), settings, window);
    EXPECT_FALSE(settings.Visible);
    EXPECT_FALSE(settings.Debug);
    EXPECT_EQ(settings.SMTPServerName, "");
    ASSERT_EQ(settings.recipients.size(), 1u);
    EXPECT_EQ(settings.recipients[0].address, "desk@paper.test");
    EXPECT_FALSE(window.Control("SendMail").visible);
}

TEST(SmtpTransmissionSection, PreferencesRecipientComesFirst) {
    const XmlDocument document = Parse(R"(<SMTPTransmission Visible="true" Debug="true"
        SMTPServerName="mail.paper.test">
      <SMTPRecipient Name="Desk">desk@paper.test</SMTPRecipient>
      <SMTPRecipient Name="Photo">photo@paper.test</SMTPRecipient>
    </SMTPTransmission>)");
    SmtpTransmissionSettings settings;
    WindowState window;
    ReadSmtpTransmission(document.DocumentElement(), std::string("me@home.test"), settings, window);
    EXPECT_TRUE(settings.Visible);
    EXPECT_TRUE(settings.Debug);
    EXPECT_EQ(settings.SMTPServerName, "mail.paper.test");
    ASSERT_EQ(settings.recipients.size(), 3u);
    EXPECT_EQ(settings.recipients[0].address, "me@home.test");
    EXPECT_EQ(settings.recipients[0].Name, "");
    EXPECT_EQ(settings.recipients[1].address, "desk@paper.test");
    EXPECT_EQ(settings.recipients[1].Name, "Desk");
    EXPECT_EQ(settings.recipients[2].address, "photo@paper.test");
    EXPECT_TRUE(window.Control("SendMail").visible);

    // Without a preferences recipient (or an empty one) the configuration's come alone, and
    // the list does not grow on a second read.
    ReadSmtpTransmission(document.DocumentElement(), std::string(), settings, window);
    ASSERT_EQ(settings.recipients.size(), 2u);
    EXPECT_EQ(settings.recipients[0].Name, "Desk");
    ReadSmtpTransmission(document.DocumentElement(), std::nullopt, settings, window);
    EXPECT_EQ(settings.recipients.size(), 2u);
}

TEST(WorkflowSection, MissingSectionTurnsTheWorkflowOff) {
    WorkflowSettings settings;
    settings.Visible = true;
    settings.WorkflowDirectory = "/old";
    settings.allUsers.push_back({"old", "U"});
    WindowState window;
    ReadWorkflow(XmlNode(), settings, window);
    EXPECT_FALSE(settings.Visible);
    EXPECT_FALSE(settings.ForceLogin);
    EXPECT_TRUE(settings.ControlImagesDirectory);
    EXPECT_EQ(settings.WorkflowDirectory, "");
    EXPECT_TRUE(settings.allUsers.empty());
    EXPECT_FALSE(window.Control("SendWorkflow").visible);
    EXPECT_FALSE(window.Control("ReceiveWorkflow").visible);
    EXPECT_FALSE(window.Control("InterceptWorkflow").visible);
}

TEST(WorkflowSection, ReadsEveryAttribute) {
    const XmlDocument document = Parse(R"(<Workflow Visible="true" ForceLogin="true"
        ClearLogsAllowed="true" TrackingEnabled="true" TrackingDisplayAllowed="true"
        TrackingClearAllowed="true" PersonalTextsDirectory="/p/texts"
        PersonalArchivesDirectory="/p/archives" PersonalImagesDirectory="/p/images"
        ControlImagesDirectory="false" TrackingTextsDirectory="/t/texts"
        TrackingImagesDirectory="/t/images" WorkflowDirectory="/w" UpdatesDirectory="/u"
        ExportTextsDirectory="/e/texts" ExportImagesDirectory="/e/images"/>)");
    WorkflowSettings settings;
    WindowState window;
    ReadWorkflow(document.DocumentElement(), settings, window);
    EXPECT_TRUE(settings.Visible);
    EXPECT_TRUE(settings.ForceLogin);
    EXPECT_TRUE(settings.ClearLogsAllowed);
    EXPECT_TRUE(settings.TrackingEnabled);
    EXPECT_TRUE(settings.TrackingDisplayAllowed);
    EXPECT_TRUE(settings.TrackingClearAllowed);
    EXPECT_EQ(settings.PersonalTextsDirectory, "/p/texts");
    EXPECT_EQ(settings.PersonalArchivesDirectory, "/p/archives");
    EXPECT_EQ(settings.PersonalImagesDirectory, "/p/images");
    EXPECT_FALSE(settings.ControlImagesDirectory);
    EXPECT_EQ(settings.TrackingTextsDirectory, "/t/texts");
    EXPECT_EQ(settings.TrackingImagesDirectory, "/t/images");
    EXPECT_EQ(settings.WorkflowDirectory, "/w");
    EXPECT_EQ(settings.UpdatesDirectory, "/u");
    EXPECT_EQ(settings.ExportTextsDirectory, "/e/texts");
    EXPECT_EQ(settings.ExportImagesDirectory, "/e/images");
    EXPECT_TRUE(window.Control("SendWorkflow").visible);
    EXPECT_TRUE(window.Control("ReceiveWorkflow").visible);
    EXPECT_FALSE(window.Control("InterceptWorkflow").visible);  // no InterceptedUsers
}

TEST(WorkflowSection, DestinationsKeepTheFirstLetterOfTheirType) {
    const XmlDocument document = Parse(R"(<Workflow Visible="true"><Users>
      <User Preferred="true">ann</User>
      <User Preferred="True" Type="Group">desk</User>
      <User Preferred="false" Type="Layout" ExportFormat="InDesign">layout</User>
      <User Type="user">bob</User>
      <User Type="L">bare</User>
      <User Preferred="true" Type="Éditeurs">édition</User>
    </Users></Workflow>)");
    WorkflowSettings settings;
    WindowState window;
    ReadWorkflow(document.DocumentElement(), settings, window);

    ASSERT_EQ(settings.allUsers.size(), 6u);
    const std::pair<std::string, std::string> expected[] = {
        {"ann", "U"}, {"desk", "G"},  {"layout", "L InDesign"},
        {"bob", "u"}, {"bare", "L "}, {"édition", "É"}};
    for (std::size_t index = 0; index < settings.allUsers.size(); ++index) {
        EXPECT_EQ(settings.allUsers[index].name, expected[index].first) << index;
        EXPECT_EQ(settings.allUsers[index].type, expected[index].second) << index;
    }
    ASSERT_EQ(settings.preferredUsers.size(), 2u);
    EXPECT_EQ(settings.preferredUsers[0].name, "ann");
    EXPECT_EQ(settings.preferredUsers[1].name, "édition");

    // A second read gives the same lists, not doubled ones.
    ReadWorkflow(document.DocumentElement(), settings, window);
    EXPECT_EQ(settings.allUsers.size(), 6u);
    EXPECT_EQ(settings.preferredUsers.size(), 2u);
}

TEST(WorkflowSection, InterceptedUsersDecideTheInterceptButton) {
    const XmlDocument shown = Parse(R"(<Workflow Visible="true">
      <InterceptedUsers Visible="true">
        <User Type="Group">desk</User><User Type="user">ann</User><User>bob</User>
      </InterceptedUsers></Workflow>)");
    WorkflowSettings settings;
    WindowState window;
    ReadWorkflow(shown.DocumentElement(), settings, window);
    EXPECT_TRUE(settings.InterceptedUsersVisible);
    ASSERT_EQ(settings.interceptedUsers.size(), 3u);
    EXPECT_EQ(settings.interceptedUsers[0].type, "Group");  // as it stands
    EXPECT_EQ(settings.interceptedUsers[1].type, "user");
    EXPECT_EQ(settings.interceptedUsers[2].type, "");
    EXPECT_EQ(settings.interceptedUsers[2].name, "bob");
    EXPECT_TRUE(window.Control("InterceptWorkflow").visible);

    const XmlDocument workflowOff =
        Parse(R"(<Workflow><InterceptedUsers Visible="true"/></Workflow>)");
    ReadWorkflow(workflowOff.DocumentElement(), settings, window);
    EXPECT_FALSE(window.Control("InterceptWorkflow").visible);
    EXPECT_FALSE(window.Control("SendWorkflow").visible);
}

TEST(TextMLSection, DefaultsWhenMissingOrEmpty) {
    TextMLSettings settings;
    settings.ServerName = "old";
    ReadTextML(XmlNode(), settings);
    EXPECT_FALSE(settings.TrackingEnabled);
    EXPECT_EQ(settings.ServerName, "localhost");
    EXPECT_EQ(settings.TrackingDocBaseName, "TessarinTracking");
    EXPECT_TRUE(settings.TrackingKeepVersions);
    EXPECT_EQ(settings.ExportDocBaseName, "TessarinExport");
    EXPECT_TRUE(settings.ExportKeepVersions);

    const XmlDocument empty =
        Parse("<TextML><ServerName/><TrackingDocBaseName></TrackingDocBaseName></TextML>");
    ReadTextML(empty.DocumentElement(), settings);
    EXPECT_EQ(settings.ServerName, "localhost");
    EXPECT_EQ(settings.TrackingDocBaseName, "TessarinTracking");
}

TEST(TextMLSection, ReadsItsItems) {
    const XmlDocument document = Parse(R"(<TextML TrackingEnabled="true">
      <ServerName>repo.paper.test</ServerName>
      <TrackingDocBaseName KeepVersions="false">Tracks</TrackingDocBaseName>
      <ExportDocBaseName KeepVersions="False">Exports</ExportDocBaseName></TextML>)");
    TextMLSettings settings;
    ReadTextML(document.DocumentElement(), settings);
    EXPECT_TRUE(settings.TrackingEnabled);
    EXPECT_EQ(settings.ServerName, "repo.paper.test");
    EXPECT_EQ(settings.TrackingDocBaseName, "Tracks");
    EXPECT_FALSE(settings.TrackingKeepVersions);
    EXPECT_EQ(settings.ExportDocBaseName, "Exports");
    EXPECT_TRUE(settings.ExportKeepVersions);
}

}  // namespace
}  // namespace tessarin
