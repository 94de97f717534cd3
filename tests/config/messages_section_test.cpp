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
    // A text that overrides its default is the window title's test.
    const MessageTexts messages =
        Read("<Messages><NewStory></NewStory><SavedStory> </SavedStory></Messages>");
    EXPECT_EQ(messages.Message("NewStory"), "New story");
    EXPECT_EQ(messages.Message("SavedStory"), " ");
    EXPECT_EQ(messages.Message("NoSuchKey"), "");
}

// That the instance rule does not run without the section is the configuration load's test.
TEST(MessagesSection, MissingSectionSetsNoDefaults) {
    MessageTexts messages = Read("<Messages><AskSave>x</AskSave></Messages>");
    ReadMessages(XmlNode(), messages, {});
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
