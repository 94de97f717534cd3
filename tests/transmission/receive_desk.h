#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "transmission/receive_take.h"
#include "transmission/receive_window.h"
#include "workflow_desk.h"

namespace tessarin::testing {

// A desk where Ann, of the group Desk, receives: personal and tracking folders under me/ and
// track/, tracking on.
struct ReceiveDesk : WorkflowDesk {
    ReceiveDesk() {
        session.configuration.identity.author = "Ann";
        session.configuration.identity.group = "Desk";
        WorkflowSettings& workflow = session.configuration.workflow;
        workflow.TrackingEnabled = true;
        workflow.PersonalTextsDirectory = Make("me/texts");
        workflow.PersonalImagesDirectory = Make("me/images");
        workflow.TrackingTextsDirectory = Make("track/texts");
        workflow.TrackingImagesDirectory = Make("track/images");
    }

    std::string Make(const std::string& relative) const {
        std::filesystem::create_directories(folder / relative);
        return (folder / relative).string();
    }

    // A story as a sender leaves it in an inbox: bare names in its hrefs.
    static std::string Waiting(const std::string& name, const std::string& href = "",
                               const std::string& extra = "") {
        return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- " + name + " -->\r\n" +
               extra + "<Story>\r\n<Metadata>\r\n<LastSaveAuthor>Jo</LastSaveAuthor>\r\n" +
               "</Metadata>\r\n<Body>\r\n<TextBox6 CharCount=\"7\" WordCount=\"2\">Fire<tab/>in" +
               "<note>n</note></TextBox6>\r\n</Body>\r\n" +
               (href.empty() ? std::string()
                             : "<Images>\r\n<ImageBag>\r\n<Image href=\"" + href +
                                   "\"/>\r\n</ImageBag>\r\n</Images>\r\n") +
               "<Logs><Log Type=\"U\">sent</Log></Logs></Story>\r\n";
    }

    std::filesystem::path Wait(const std::string& inbox, const std::string& name,
                               const std::string& bytes) {
        return folder.Write("inbox/" + inbox + "/" + name, bytes);
    }

    std::vector<std::string> Tree() {
        std::vector<std::string> nodes;
        for (const TreeNode* node : receive.state.Tree("treeReceive").AllNodes())
            nodes.push_back(node->key + " " + node->text);
        return nodes;
    }

    bool Take(const std::string& name) {
        for (const TreeNode* node : receive.state.Tree("treeReceive").AllNodes()) {
            if (node->text == name) receive.selected = node->key;
        }
        return TakeSelectedStory(session, receive);
    }

    ReceiveWindow receive;
};

}  // namespace tessarin::testing
