#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "app/window_state.h"
#include "common/xml_document.h"
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

// A section given as XML text, parsed; the test fails when the text does not parse.
inline XmlDocument ParseSection(std::string_view xml) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << xml;
    return document;
}

// Several values read at once, joined with "|", to compare with one expected text.
template <typename Texts>
std::string Joined(const Texts& texts) {
    std::string joined;
    bool first = true;
    for (const auto& text : texts) {
        if (!first) joined += '|';
        joined += text;
        first = false;
    }
    return joined;
}
inline std::string Joined(std::initializer_list<std::string_view> texts) {
    return Joined<std::initializer_list<std::string_view>>(texts);
}

// Several flags at once: "1" for each that is on, "0" for each that is off, in order.
inline std::string Bits(std::initializer_list<bool> flags) {
    std::string bits;
    for (bool flag : flags)
        bits += flag ? '1' : '0';
    return bits;
}

// Which of the named controls are visible, as Bits gives it.
inline std::string Shown(WindowState& window, std::initializer_list<std::string_view> names) {
    std::string bits;
    for (std::string_view name : names)
        bits += window.Control(name).visible ? '1' : '0';
    return bits;
}

}  // namespace tessarin::testing
