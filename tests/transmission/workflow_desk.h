#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "common/scoped_environment.h"
#include "config/configuration_document.h"
#include "session/editor_session.h"
#include "support/temp_dir.h"
#include "transmission/story_staging.h"
#include "transmission/workflow_window.h"

namespace tessarin::testing {

// A desk on Tuesday 5 March 2024 at 09:07, day-month-year dates, with a workflow: the
// inboxes Ann (a user), Desk (a group) and Page (an InDesign layout system) under inbox/,
// delivery folders under export/, the form "Brief" (box 7 takes 1000 to 2000 characters,
// at most 2 pictures worth 300 characters each) and the status values Draft and Usable.
// Stories are written under stories/; the send window is open. Stage() lists a story with
// one picture of the size given.
struct WorkflowDesk {
    explicit WorkflowDesk(std::string ftpAttributes = "", std::string workflowAttributes = "") {
        ConfigurationDocument document;
        document.ftpTransmission = "<FTPTransmission " + ftpAttributes +
                                   R"(><FTPServer IPNumber="ftp.example.org"/></FTPTransmission>)" +
                                   Workflow(workflowAttributes);
        document.metadata = R"(<Metadata><Forms><Form Name="Brief" TextBoxes="17" MaxImages="2" )"
                            R"(NumberOfChars7="1000-2000" ImageSize1="300" ImageSize2="300"/>)"
                            R"(<Form Name="Flash" TextBoxes="7" MaxImages="0"/>)"
                            R"(<Form Name="Photo" TextBoxes="7" MinImages="1"/></Forms>)"
                            R"(<Status><StatusItem Name="Draft" FormalName="Draft"/>)"
                            R"(<StatusItem Name="Ready" FormalName="Usable"/></Status>)"
                            R"(<Author Name="By">Ann Lee</Author></Metadata>)";
        document.messages = "<Messages/>";
        folder.Write("app/Tessarin.xml", document.Text());
        for (const char* inbox : {"inbox/Ann", "inbox/Desk", "inbox/Page", "export/texts",
                                  "export/images", "stories"}) {
            std::filesystem::create_directories(folder / inbox);
        }
        CreateStartDirectories(session.paths);
        session.preferences = ReadPreferences(session.profile);
        LoadConfiguration(session.paths.configurationFile, session.profile, session.preferences,
                          session.configuration, session.window);
        OpenWorkflowWindow(session, window);
    }

    std::string Workflow(const std::string& attributes) const {
        const std::string root = folder.path().string();
        return R"(<Workflow Visible="true" WorkflowDirectory=")" + root + R"(/inbox" )" +
               R"(ExportTextsDirectory=")" + root + R"(/export/texts" ExportImagesDirectory=")" +
               root + R"(/export/images" )" + attributes +
               R"(><Users><User Preferred="true">Ann</User><User Preferred="true" Type="G">Desk)"
               R"(</User><User Preferred="true" Type="L" ExportFormat="InDesign">Page</User>)"
               R"(<User>Bob</User></Users></Workflow>)";
    }

    // A story file: its Metadata children, its Body children and, when given, its Images
    // and Files blocks.
    std::filesystem::path Story(
        const std::string& name, const std::string& metadata,
        const std::string& body = R"(<TextBox6 CharCount="1500">Fire</TextBox6>)",
        const std::string& attachments = "") const {
        return folder.Write("stories/" + name,
                            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- " + name +
                                " -->\r\n<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n"
                                "<Metadata>\r\n" +
                                metadata + "</Metadata>\r\n<Body>\r\n" + body + "\r\n</Body>\r\n" +
                                attachments + "</Story>\r\n");
    }

    // Images blocks for the files given, as the story writer writes their paths.
    static std::string Images(const std::vector<std::filesystem::path>& files) {
        std::string block = "<Images>\r\n";
        for (const auto& file : files)
            block +=
                "<ImageBag>\r\n<Image href=\"file://" + file.string() + "\"/>\r\n</ImageBag>\r\n";
        return block + "</Images>\r\n";
    }

    // Lists name.xml with its picture name.jpg, whose bytes are pictureSize times the name's
    // first letter; true when the story was staged.
    bool Stage(const std::string& name, std::size_t pictureSize) {
        pictures.push_back(std::string(pictureSize, name[0]));
        const auto picture = folder.Write("stories/" + name + ".jpg", pictures.back());
        sources.push_back(Story(name + ".xml", "<Form>Brief</Form>",
                                R"(<TextBox6 CharCount="1500">Fire</TextBox6>)",
                                Images({picture})));
        window.preparedStory = sources.back();
        return AddStory(session, window).outcome == AddOutcome::Staged;
    }

    ScopedEnvironment now{"TESSARIN_NOW", "2024-03-05T09:07:30"};
    ScopedEnvironment shortDate{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder / "app"), user};
    WorkflowWindow window;
    std::vector<std::filesystem::path> sources;  // the stories staged, and their pictures
    std::vector<std::string> pictures;
};

}  // namespace tessarin::testing
