#include "config/messages_section.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tessarin {
namespace {

XmlDocument Parse(std::string_view xml) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << xml;
    return document;
}

TEST(MessagesSection, DefaultTableInReadingOrder) {
    const std::span<const MessageDefault> defaults = MessageDefaults();
    ASSERT_EQ(defaults.size(), 103u);
    EXPECT_EQ(defaults.front().key, "NewStory");
    EXPECT_EQ(defaults.front().text, "New story");
    EXPECT_EQ(defaults.back().key, "StatusNotUsable");
    EXPECT_EQ(defaults.back().text, "Story status: ###\\nConfirm sending");
}

TEST(MessagesSection, EmptySectionGivesEveryDefault) {
    const XmlDocument document = Parse("<Messages/>");
    MessageTexts messages;
    ReadMessages(document.DocumentElement(), messages, {});
    for (const MessageDefault& message : MessageDefaults()) {
        EXPECT_EQ(messages.Raw(message.key), message.text) << message.key;
    }
    EXPECT_EQ(messages.Message("AskSave"), "Save current story");
    EXPECT_EQ(messages.Message("NotMultipleInstance"), "Program already running");
    EXPECT_EQ(messages.Message("NoSuchKey"), "");
}

TEST(MessagesSection, TextsOverrideAndEmptyTextTakesTheDefault) {
    const XmlDocument document = Parse(R"(<Messages>
      <AskSave>Enregistrer le sujet</AskSave><NewStory></NewStory><SavedStory> </SavedStory>
    </Messages>)");
    MessageTexts messages;
    ReadMessages(document.DocumentElement(), messages, {});
    EXPECT_EQ(messages.Message("AskSave"), "Enregistrer le sujet");
    EXPECT_EQ(messages.Message("NewStory"), "New story");
    EXPECT_EQ(messages.Message("SavedStory"), " ");
}

TEST(MessagesSection, MissingSectionSetsNoDefaultsAndSkipsTheInstanceRule) {
    const XmlDocument first = Parse("<Messages><AskSave>x</AskSave></Messages>");
    MessageTexts messages;
    ReadMessages(first.DocumentElement(), messages, {});
    int ruleRuns = 0;
    ReadMessages(XmlNode(), messages, [&] { ++ruleRuns; });
    EXPECT_EQ(ruleRuns, 0);
    EXPECT_EQ(messages.Raw("AskSave"), "");
    EXPECT_EQ(messages.Raw("NewStory"), "");
}

TEST(MessagesSection, InstanceRuleRunsOnceRightAfterItsMessage) {
    const XmlDocument document =
        Parse("<Messages><NotMultipleInstance>Déjà lancé</NotMultipleInstance></Messages>");
    MessageTexts messages;
    std::vector<std::string> seen;
    ReadMessages(document.DocumentElement(), messages, [&] {
        seen.push_back(messages.Message("NotMultipleInstance"));
        seen.push_back(messages.Message("ReplaceDone"));  // read just before
        seen.push_back(messages.Message("InvalidXSLT"));  // read just after
    });
    const std::vector<std::string> expected = {"Déjà lancé", "Replacements done", ""};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(messages.Message("InvalidXSLT"), "Invalid XSL transformation");
}

TEST(MessagesSection, LineBreakMarkAndPlaceholder) {
    const XmlDocument document = Parse(R"(<Messages/>)");
    MessageTexts messages;
    ReadMessages(document.DocumentElement(), messages, {});
    EXPECT_EQ(messages.Raw("StatusNotUsable"), "Story status: ###\\nConfirm sending");
    EXPECT_EQ(messages.Message("StatusNotUsable"), "Story status: ###\nConfirm sending");
    EXPECT_EQ(ReplacePlaceholder(messages.Message("StatusNotUsable"), "Draft"),
              "Story status: Draft\nConfirm sending");

    const XmlDocument configured =
        Parse(R"(<Messages><StatusNotUsable>a\nb\nc\</StatusNotUsable></Messages>)");
    ReadMessages(configured.DocumentElement(), messages, {});
    EXPECT_EQ(messages.Message("StatusNotUsable"), "a\nb\nc\\");
}

TEST(MessagesSection, PlaceholderReplacesEveryOccurrence) {
    EXPECT_EQ(ReplacePlaceholder("### of ###", "3"), "3 of 3");
    EXPECT_EQ(ReplacePlaceholder("####", "x"), "x#");
    EXPECT_EQ(ReplacePlaceholder("none", "x"), "none");
    EXPECT_EQ(ReplacePlaceholder("missing ### chars", ""), "missing  chars");
}

}  // namespace
}  // namespace tessarin
