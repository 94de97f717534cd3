#include "config/interface_section.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "config/section_reading.h"

namespace tessarin {
namespace {

using testing::Bits;
using testing::Joined;
using testing::Shown;

struct InterfaceRead {
    InterfaceSettings settings;
    WindowState window;

    explicit InterfaceRead(std::string_view xml) { Read(xml); }
    void Read(std::string_view xml) {
        const XmlDocument document = testing::ParseSection(xml);
        ReadInterface(document.DocumentElement(), settings, window);
    }
};

TEST(InterfaceSection, KeysWithoutRepeats) {
    const std::span<const std::string_view> keys = InterfaceKeys();
    EXPECT_EQ(std::set<std::string_view>(keys.begin(), keys.end()).size(), keys.size());
}

TEST(InterfaceSection, MissingSectionKeepsDesignTimeCaptionsAndAllowsInstances) {
    InterfaceSettings settings;
    settings.MultipleInstances = false;
    WindowState window;
    ReadInterface(XmlNode(), settings, window);
    EXPECT_EQ(
        Bits({settings.MultipleInstances, settings.MetadataVisible, settings.OtherFilesVisible}),
        "111");
    // Without the section no caption takes its default.
    EXPECT_EQ(Joined({settings.Caption("TooMuchChars"), settings.Caption("IPTCObjectName")}), "|");
}

TEST(InterfaceSection, CaptionsFromTextThenDefaults) {
    InterfaceRead read(R"(<Interface>
      <FilePrint>Imprimer</FilePrint><TooMuchChars></TooMuchChars>
      <NotEnoughChars>il manque ### signes</NotEnoughChars><FileNew> </FileNew>
      <Unknown>ignored</Unknown><IPTCCity>Ville</IPTCCity></Interface>)");
    // An empty or missing text takes the code's default; a key without one keeps
    // the design-time caption (empty). IPTC keys default to the field's name.
    const std::pair<std::string_view, std::string_view> captions[] = {
        {"FilePrint", "Imprimer"},
        {"TooMuchChars", "too much chars: ###"},
        {"NotEnoughChars", "il manque ### signes"},
        {"FileNew", " "},
        {"FileOpen", ""},
        {"Unknown", ""},
        {"EditionMultipleClipboard", "Multiple clipboard"},
        {"IPTCObjectName", "Object Name"},
        {"IPTCCity", "Ville"}};
    for (const auto& [key, caption] : captions) {
        SCOPED_TRACE(key);
        EXPECT_EQ(read.settings.Caption(key), caption);
    }
    // The caption goes to the menu entry and becomes its button's tool tip.
    WindowState& window = read.window;
    EXPECT_EQ(Joined({window.Control("mnuFilePrint").caption, window.Control("Print").toolTip,
                      window.Control("SepPrint").toolTip, window.Control("mnuFileOpen").caption,
                      window.Control("mnuEditionMultipleClipboard").caption}),
              "Imprimer|Imprimer|||Multiple clipboard");
}

TEST(InterfaceSection, HidingAnEntryHidesItsButtonAndSeparator) {
    InterfaceRead read(R"(<Interface>
      <FilePrint Visible="false">Print</FilePrint><EditionUndo Visible="False"/>
      <FormatInter1 Visible="false"/><FileSave Visible="true"/></Interface>)");
    EXPECT_FALSE(read.settings.Entry("FilePrint").Visible);
    // "False" is not "false".
    EXPECT_EQ(Shown(read.window, {"mnuFilePrint", "Print", "SepPrint", "Inter", "SepInter",
                                  "mnuFormatInter2", "Undo", "SepUndo", "Save"}),
              "000001111");

    // A later configuration that keeps the entry shows it again.
    read.Read("<Interface/>");
    EXPECT_EQ(Shown(read.window, {"mnuFilePrint", "Print", "SepPrint"}), "111");
}

TEST(InterfaceSection, NeverShowsAButtonThatTransmissionHid) {
    WindowState window;
    window.Control("SendFTP").visible = false;
    window.Control("Logs").visible = false;
    const XmlDocument document = testing::ParseSection(
        R"(<Interface><ToolsSMTP Visible="false">Mail</ToolsSMTP></Interface>)");
    InterfaceSettings settings;
    ReadInterface(document.DocumentElement(), settings, window);
    EXPECT_EQ(Shown(window, {"SendFTP", "Logs", "SendMail", "mnuToolsSMTP"}), "0000");
    EXPECT_EQ(window.Control("SendMail").toolTip, "Mail");
}

TEST(InterfaceSection, RootAndKeyAttributesWithTheirDefaults) {
    InterfaceRead read(R"(<Interface MultipleInstances="false" MetadataVisible="false"
        TextZoomVisible="false" ImagesVisible="False" OtherFilesVisible="false">
      <EditionMultipleClipboard File="clips.txt"/>
      <ToolsInternet1 URL="https://paper.test/">Site</ToolsInternet1>
      <ToolsApplication Path="/usr/bin/app"/>
      <PreferencesSpellCheckerCordial Link="l" UserDict="u" Title="t"/>
      <DisplayMetadata Short="Info"/><ImageCaption Mandatory="true"/>
      <TrackingDispatchByAuthor Enabled="false"/></Interface>)");
    const InterfaceSettings& settings = read.settings;
    EXPECT_EQ(Bits({settings.MultipleInstances, settings.MetadataVisible, settings.TextZoomVisible,
                    settings.ImagesVisible, settings.OtherFilesVisible}),
              "00010");
    EXPECT_EQ(Shown(read.window, {"Informations", "Zoom", "Images", "Story"}), "0011");

    const InterfaceEntry& clipboard = settings.Entry("EditionMultipleClipboard");
    EXPECT_EQ(Joined({clipboard.File, clipboard.ToolTipText, clipboard.Copy, clipboard.Sorted}),
              "clips.txt|Drag and drop to and from multiple clipboard.|"
              "Copy to multiple clipboard|Sorted texts");
    const InterfaceEntry& cordial = settings.Entry("PreferencesSpellCheckerCordial");
    EXPECT_EQ(Joined({settings.Entry("ToolsSynonyms").File, settings.Entry("ToolsInternet1").URL,
                      settings.Entry("ToolsApplication").Path, cordial.Link, cordial.UserDict,
                      cordial.Title, settings.Entry("DisplayMetadata").Short}),
              "Synonyms.txt|https://paper.test/|/usr/bin/app|l|u|t|Info");
    EXPECT_EQ(
        Bits({settings.Entry("ImageCaption").Mandatory, settings.Entry("ImageCredit").Mandatory,
              settings.Entry("TrackingDispatchByAuthor").Enabled,
              settings.Entry("TrackingDispatchByLastSaveAuthor").Enabled}),
        "1001");
}

}  // namespace
}  // namespace tessarin
