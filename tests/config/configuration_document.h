#pragma once

#include <string>
#include <utility>

#include "app/window_state.h"
#include "config/configuration.h"
#include "config/load_configuration.h"
#include "config/preferences.h"
#include "config/profile_file.h"
#include "support/temp_dir.h"

namespace tessarin::testing {

// A configuration document made of its sections, each replaceable by a test. The defaults
// make the smallest document that loads completely.
struct ConfigurationDocument {
    std::string rootAttributes = R"(Version="3.2" StoriesEncoding="UTF-8")";
    std::string ftpTransmission =
        R"(<FTPTransmission><FTPServer IPNumber="ftp.example.org" User="desk"/></FTPTransmission>)";
    std::string metadata = "<Metadata/>";
    std::string keywords;
    std::string taxonomy;
    std::string story = "<Story/>";
    std::string newsServices;
    std::string publications =
        R"(<Publications><Publication Name="Morning Herald"/></Publications>)";
    std::string interface;
    std::string messages;

    // This document with one section replaced; calls chain.
    ConfigurationDocument With(std::string ConfigurationDocument::*section,
                               std::string text) const {
        ConfigurationDocument changed = *this;
        changed.*section = std::move(text);
        return changed;
    }

    std::string Text() const {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Tessarin " + rootAttributes + ">" +
               ftpTransmission + metadata + keywords + taxonomy + story + newsServices +
               publications + interface + messages + "</Tessarin>\n";
    }
};

// The configuration load with everything it needs: a folder for the document and the
// preferences file, the preferences read from that file, the record and the window.
struct LoadBench {
    TempDir folder;
    std::filesystem::path document = folder / "Tessarin.xml";
    ProfileFile profile{folder / "Tessarin.ini"};
    Preferences preferences;
    Configuration configuration;
    WindowState window;

    bool Load(const std::string& text, const LoadOptions& options = {}) {
        folder.Write("Tessarin.xml", text);
        return LoadConfiguration(document, profile, preferences, configuration, window, options);
    }
    bool Load(const ConfigurationDocument& parts, const LoadOptions& options = {}) {
        return Load(parts.Text(), options);
    }
    void WritePreferences(const std::string& text) {
        folder.Write("Tessarin.ini", text);
        preferences = ReadPreferences(profile);
    }
    const ControlState& Control(std::string_view name) { return window.Control(name); }
    const TreeModel& Tree(std::string_view name) { return window.Tree(name); }
    const ListModel& List(std::string_view name) { return window.List(name); }
};

// The texts of a list's items, in order.
inline std::vector<std::string> ItemTexts(const ListModel& list) {
    std::vector<std::string> texts;
    for (const ListItem& item : list.items)
        texts.push_back(item.text);
    return texts;
}

// Key, text and tag of every node of a tree, depth first, one "key|text|tag" string each.
inline std::vector<std::string> NodeLines(const TreeModel& tree) {
    std::vector<std::string> lines;
    for (const TreeNode* node : tree.AllNodes()) {
        lines.push_back(node->key + "|" + node->text + "|" + node->tag);
    }
    return lines;
}

}  // namespace tessarin::testing
