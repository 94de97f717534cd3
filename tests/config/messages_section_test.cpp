#include "config/messages_section.h"

#include <gtest/gtest.h>

#include <string_view>

#include "config/section_reading.h"

namespace tessarin {
namespace {

MessageTexts Read(std::string_view xml) {
    const XmlDocument document = testing::ParseSection(xml);
    MessageTexts messages;
    ReadMessages(document.DocumentElement(), messages, {});
    return messages;
}

TEST(MessagesSection, TextsOverrideAndAnEmptyOrMissingTextTakesTheDefault) {
    const MessageTexts messages = Read(R"(<Messages>
      <AskSave>Enregistrer le sujet</AskSave><NewStory></NewStory><SavedStory> </SavedStory>
    </Messages>)");
    EXPECT_EQ(messages.Message("AskSave"), "Enregistrer le sujet");
    EXPECT_EQ(messages.Message("NewStory"), "New story");
    EXPECT_EQ(messages.Message("SavedStory"), " ");
    EXPECT_EQ(messages.Message("NotMultipleInstance"), "Program already running");
    EXPECT_EQ(messages.Message("NoSuchKey"), "");
}

TEST(MessagesSection, MissingSectionSetsNoDefaultsAndSkipsTheInstanceRule) {
    MessageTexts messages = Read("<Messages><AskSave>x</AskSave></Messages>");
    int ruleRuns = 0;
    ReadMessages(XmlNode(), messages, [&] { ++ruleRuns; });
    EXPECT_EQ(ruleRuns, 0);
    EXPECT_EQ(messages.Raw("AskSave"), "");
    EXPECT_EQ(messages.Raw("NewStory"), "");
}

TEST(MessagesSection, InstanceRuleRunsOnceRightAfterItsMessage) {
    const XmlDocument document = testing::ParseSection(
        "<Messages><NotMultipleInstance>Déjà lancé</NotMultipleInstance></Messages>");
    MessageTexts messages;
    std::vector<std::string> seen;
    ReadMessages(document.DocumentElement(), messages, [&] {
        seen.push_back(messages.Message("NotMultipleInstance"));
        seen.push_back(messages.Message("ReplaceDone"));  // read just before
        seen.push_back(messages.Message("InvalidXSLT"));  // read just after
    });
    EXPECT_EQ(seen, (std::vector<std::string>{"Déjà lancé", "Replacements done", ""}));
    EXPECT_EQ(messages.Message("InvalidXSLT"), "Invalid XSL transformation");
}

TEST(MessagesSection, LineBreakMarkAndPlaceholder) {
    const MessageTexts defaults = Read("<Messages/>");
    EXPECT_EQ(defaults.Raw("StatusNotUsable"), "Story status: ###\\nConfirm sending");
    EXPECT_EQ(defaults.Message("StatusNotUsable"), "Story status: ###\nConfirm sending");
    EXPECT_EQ(Read(R"(<Messages><StatusNotUsable>a\nb\nc\</StatusNotUsable></Messages>)")
                  .Message("StatusNotUsable"),
              "a\nb\nc\\");

    const std::string_view cases[][3] = {{"### of ###", "3", "3 of 3"},
                                         {"####", "x", "x#"},
                                         {"none", "x", "none"},
                                         {"missing ### chars", "", "missing  chars"}};
    for (const auto& [text, value, expected] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ReplacePlaceholder(text, value), expected);
    }
}

}  // namespace
}  // namespace tessarin
