#include "config/interface_section.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace tessarin {
namespace {

XmlDocument Parse(std::string_view xml) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << xml;
    return document;
}

TEST(InterfaceSection, KeysInReadingOrderWithoutRepeats) {
    const std::span<const std::string_view> keys = InterfaceKeys();
    ASSERT_EQ(keys.size(), 356u);
    EXPECT_EQ(keys.front(), "FileNew");
    EXPECT_EQ(keys[7], "FilePrint");
    EXPECT_EQ(keys.back(), "TrackingAutomaticUpdate");
    EXPECT_EQ(std::set<std::string_view>(keys.begin(), keys.end()).size(), keys.size());
}

TEST(InterfaceSection, MissingSectionKeepsDesignTimeCaptionsAndAllowsInstances) {
    InterfaceSettings settings;
    settings.MultipleInstances = false;
    WindowState window;
    ReadInterface(XmlNode(), settings, window);
    EXPECT_TRUE(settings.MultipleInstances);
    EXPECT_TRUE(settings.MetadataVisible);
    EXPECT_TRUE(settings.OtherFilesVisible);
    EXPECT_EQ(settings.Caption("TooMuchChars"), "");
    EXPECT_EQ(settings.Caption("IPTCObjectName"), "");
    EXPECT_EQ(settings.Caption("FilePrint"), "");
    EXPECT_EQ(window.Control("mnuFilePrint").caption, "");
    EXPECT_TRUE(window.Control("mnuFilePrint").visible);
    EXPECT_TRUE(window.Control("Print").visible);
}

TEST(InterfaceSection, CaptionsFromTextThenDefaults) {
    const XmlDocument document = Parse(R"(<Interface>
      <FilePrint>Imprimer</FilePrint>
      <TooMuchChars></TooMuchChars>
      <NotEnoughChars>il manque ### signes</NotEnoughChars>
      <FileNew> </FileNew>
      <Unknown>ignored</Unknown>
    </Interface>)");
    InterfaceSettings settings;
    WindowState window;
    ReadInterface(document.DocumentElement(), settings, window);

    EXPECT_EQ(settings.Caption("FilePrint"), "Imprimer");
    EXPECT_EQ(window.Control("mnuFilePrint").caption, "Imprimer");
    EXPECT_EQ(window.Control("Print").toolTip, "Imprimer");
    EXPECT_EQ(window.Control("SepPrint").toolTip, "");

    EXPECT_EQ(settings.Caption("TooMuchChars"), "too much chars: ###");  // empty text
    EXPECT_EQ(settings.Caption("NotEnoughChars"), "il manque ### signes");
    EXPECT_EQ(settings.Caption("ClearLogsConfirm"), "Confirm Logs clearing");  // missing
    EXPECT_EQ(settings.Caption("ToolsConfigurationTipOfTheDay"),
              "Select 'Tip of the Day' configuration file");
    EXPECT_EQ(settings.Caption("FileNew"), " ");
    EXPECT_EQ(settings.Caption("FileOpen"), "");  // design-time caption
    EXPECT_EQ(window.Control("mnuFileOpen").caption, "");
    EXPECT_EQ(settings.Caption("Unknown"), "");
    EXPECT_EQ(settings.Caption("EditionMultipleClipboard"), "Multiple clipboard");
    EXPECT_EQ(window.Control("mnuEditionMultipleClipboard").caption, "Multiple clipboard");
}

TEST(InterfaceSection, IptcKeysDefaultToTheFieldNames) {
    const XmlDocument document = Parse("<Interface><IPTCCity>Ville</IPTCCity></Interface>");
    InterfaceSettings settings;
    WindowState window;
    ReadInterface(document.DocumentElement(), settings, window);
    EXPECT_EQ(settings.Caption("IPTCObjectName"), "Object Name");
    EXPECT_EQ(settings.Caption("IPTCEditStatus"), "Edit Status");
    EXPECT_EQ(settings.Caption("IPTCUrgency"), "Urgency");
    EXPECT_EQ(settings.Caption("IPTCSupplementalCategory"), "Supplemental Category");
    EXPECT_EQ(settings.Caption("IPTCOriginalTransmissionReference"),
              "Original Transmission Reference");
    EXPECT_EQ(settings.Caption("IPTCProvinceState"), "Province/State");
    EXPECT_EQ(settings.Caption("IPTCCaptionAbstract"), "Caption/Abstract");
    EXPECT_EQ(settings.Caption("IPTCCity"), "Ville");
}

TEST(InterfaceSection, HidingAnEntryHidesItsButtonAndSeparator) {
    const XmlDocument document = Parse(R"(<Interface>
      <FilePrint Visible="false">Print</FilePrint><EditionUndo Visible="False"/>
      <FormatInter1 Visible="false"/><FileSave Visible="true"/></Interface>)");
    InterfaceSettings settings;
    WindowState window;
    ReadInterface(document.DocumentElement(), settings, window);
    EXPECT_FALSE(settings.Entry("FilePrint").Visible);
    EXPECT_FALSE(window.Control("mnuFilePrint").visible);
    EXPECT_FALSE(window.Control("Print").visible);
    EXPECT_FALSE(window.Control("SepPrint").visible);
    EXPECT_FALSE(window.Control("Inter").visible);
    EXPECT_FALSE(window.Control("SepInter").visible);
    EXPECT_TRUE(window.Control("mnuFormatInter2").visible);
    EXPECT_TRUE(window.Control("Undo").visible);  // "False" is not "false"
    EXPECT_TRUE(window.Control("SepUndo").visible);
    EXPECT_TRUE(window.Control("Save").visible);

    // A later configuration that keeps the entry shows it again.
    const XmlDocument next = Parse("<Interface/>");
    ReadInterface(next.DocumentElement(), settings, window);
    EXPECT_TRUE(window.Control("mnuFilePrint").visible);
    EXPECT_TRUE(window.Control("Print").visible);
    EXPECT_TRUE(window.Control("SepPrint").visible);
}

TEST(InterfaceSection, NeverShowsAButtonThatTransmissionHid) {
    WindowState window;
    window.Control("SendFTP").visible = false;
    window.Control("Logs").visible = false;
    const XmlDocument document =
        Parse(R"(<Interface><ToolsSMTP Visible="false">Mail</ToolsSMTP></Interface>)");
    InterfaceSettings settings;
    ReadInterface(document.DocumentElement(), settings, window);
    EXPECT_FALSE(window.Control("SendFTP").visible);
    EXPECT_FALSE(window.Control("Logs").visible);
    EXPECT_FALSE(window.Control("SendMail").visible);
    EXPECT_FALSE(window.Control("mnuToolsSMTP").visible);
    EXPECT_EQ(window.Control("SendMail").toolTip, "Mail");
}

TEST(InterfaceSection, RootAttributes) {
    const XmlDocument document = Parse(R"(<Interface MultipleInstances="false"
        MetadataVisible="false" TextZoomVisible="false" ImagesVisible="False"
        OtherFilesVisible="false"/>)");
    InterfaceSettings settings;
    WindowState window;
    ReadInterface(document.DocumentElement(), settings, window);
    EXPECT_FALSE(settings.MultipleInstances);
    EXPECT_FALSE(settings.MetadataVisible);
    EXPECT_FALSE(settings.TextZoomVisible);
    EXPECT_TRUE(settings.ImagesVisible);
    EXPECT_FALSE(settings.OtherFilesVisible);
    EXPECT_FALSE(window.Control("Informations").visible);
    EXPECT_FALSE(window.Control("Zoom").visible);
    EXPECT_TRUE(window.Control("Images").visible);
    EXPECT_TRUE(window.Control("Story").visible);
}

TEST(InterfaceSection, KeyAttributesAndTheirDefaults) {
    const XmlDocument document = Parse(R"(<Interface>
      <EditionMultipleClipboard File="clips.txt"/>
      <ToolsInternet1 URL="https://paper.test/">Site</ToolsInternet1>
      <ToolsApplication Path="/usr/bin/app"/>
      <PreferencesSpellCheckerCordial Link="l" UserDict="u" Title="t"/>
      <DisplayMetadata Short="Info"/>
      <ImageCaption Mandatory="true"/>
      <TrackingDispatchByAuthor Enabled="false"/>
    </Interface>)");
    InterfaceSettings settings;
    WindowState window;
    ReadInterface(document.DocumentElement(), settings, window);

    const InterfaceEntry& clipboard = settings.Entry("EditionMultipleClipboard");
    EXPECT_EQ(clipboard.File, "clips.txt");
    EXPECT_EQ(clipboard.ToolTipText, "Drag and drop to and from multiple clipboard.");
    EXPECT_EQ(clipboard.Copy, "Copy to multiple clipboard");
    EXPECT_EQ(clipboard.Sorted, "Sorted texts");
    EXPECT_EQ(settings.Entry("ToolsSynonyms").File, "Synonyms.txt");
    EXPECT_EQ(settings.Entry("ToolsInternet1").URL, "https://paper.test/");
    EXPECT_EQ(settings.Entry("ToolsApplication").Path, "/usr/bin/app");
    const InterfaceEntry& cordial = settings.Entry("PreferencesSpellCheckerCordial");
    EXPECT_EQ(cordial.Link + cordial.UserDict + cordial.Title, "lut");
    EXPECT_EQ(settings.Entry("DisplayMetadata").Short, "Info");
    EXPECT_TRUE(settings.Entry("ImageCaption").Mandatory);
    EXPECT_FALSE(settings.Entry("ImageCredit").Mandatory);
    EXPECT_FALSE(settings.Entry("TrackingDispatchByAuthor").Enabled);
    EXPECT_TRUE(settings.Entry("TrackingDispatchByLastSaveAuthor").Enabled);
}

TEST(InterfaceSection, ToolbarButtonsOfMenuEntries) {
    const auto buttons = [](std::string_view key) {
        const std::span<const std::string_view> found = ToolbarButtonsOf(key);
        return std::vector<std::string_view>(found.begin(), found.end());
    };
    using Words = std::vector<std::string_view>;
    EXPECT_EQ(buttons("FilePrint"), (Words{"Print", "SepPrint"}));
    EXPECT_EQ(buttons("ToolsSpellChecker"), (Words{"SpellChecker", "SepSpellChecker"}));
    EXPECT_EQ(buttons("FileNew"), (Words{"New"}));
    EXPECT_EQ(buttons("FormatQuestionsAnswers"), (Words{"QA"}));
    EXPECT_EQ(buttons("FileExit"), Words{});
}

}  // namespace
}  // namespace tessarin
