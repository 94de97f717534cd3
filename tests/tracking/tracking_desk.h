#pragma once

#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include "tracking/tracking_window.h"
#include "transmission/workflow_desk.h"

namespace tessarin::testing {

// A desk (today 05/03/2024) whose tracking directories are track/texts and track/images.
struct TrackingDesk : WorkflowDesk {
    TrackingDesk() {
        WorkflowSettings& workflow = session.configuration.workflow;
        workflow.TrackingEnabled = workflow.TrackingDisplayAllowed = true;
        workflow.TrackingClearAllowed = true;
        workflow.TrackingTextsDirectory = (folder / "track/texts").string();
        workflow.TrackingImagesDirectory = (folder / "track/images").string();
        workflow.PersonalTextsDirectory = (folder / "me").string();
        session.configuration.identity.author = "Ann";
        std::filesystem::create_directories(folder / "track/images");
    }

    struct Copy {
        std::string name;
        std::string date = "05/03/2024";
        std::string author = "Ann";
        std::string lastAuthor = "Jo";
        std::string logType = "U";
        std::string form = "Brief";
        std::string section = {};
        std::string title = "Fire";
        std::string image = {};
    };

    void Track(const Copy& copy) {
        folder.Write(
            "track/texts/" + copy.name,
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<Story><Metadata>"
            "<Publication>Herald</Publication><Classification>Local</Classification>" +
                (copy.section.empty() ? "" : "<SectionLocal>" + copy.section + "</SectionLocal>") +
                "<PublicationDate Name=\"Date\">" + copy.date + "</PublicationDate><Form>" +
                copy.form + "</Form><Author>" + copy.author + "</Author><LastSaveAuthor>" +
                copy.lastAuthor + "</LastSaveAuthor></Metadata><Body><TextBox3>" + copy.title +
                "</TextBox3><TextBox6 CharCount=\"5\">Price 5<euro/></TextBox6></Body>" +
                (copy.image.empty() ? ""
                                    : "<Images><ImageBag><Image href=\"file:///x/" + copy.image +
                                          "\"/></ImageBag></Images>") +
                "<Logs><Log Type=\"L\">layout</Log><Log Type=\"" + copy.logType +
                "\">last</Log></Logs></Story>");
        if (!copy.image.empty()) folder.Write("track/images/" + copy.image, "JPEG");
    }

    // The tree as lines, two blanks a level, a story's picture after its text.
    std::vector<std::string> Tree(const TrackingChoices& choices, const std::string& search = "") {
        window.choices = choices;
        window.search = search;
        UpdateTracking(session, window);
        std::vector<std::string> lines;
        Walk(window.state.Tree("treeTracking").Roots(), "", lines);
        return lines;
    }

    static void Walk(const std::list<TreeNode>& nodes, const std::string& indent,
                     std::vector<std::string>& lines) {
        for (const TreeNode& node : nodes) {
            lines.push_back(indent + node.text +
                            (node.picture != 0 ? " #" + std::to_string(node.picture) : ""));
            Walk(node.children, indent + "  ", lines);
        }
    }

    std::string KeyOf(const std::string& text) {
        for (const TreeNode* node : window.state.Tree("treeTracking").AllNodes()) {
            if (node->text == text) return node->key;
        }
        return {};
    }

    TrackingWindow window;
};

}  // namespace tessarin::testing
