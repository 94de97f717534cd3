#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/scoped_environment.h"
#include "common/utf8.h"
#include "editing/panel_session.h"
#include "linguistics/spell_check_command.h"
#include "linguistics/spelling_bridge.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;
using testing::TempDir;

const std::vector<std::filesystem::path> kSystemFolders = {"/usr/share/hunspell"};

SpellingSettings Settings(const std::string& language, const TempDir& folder) {
    SpellingSettings settings;
    settings.language = language;
    settings.personalDictionary = folder / "PersonalDictionary.txt";
    settings.dictionaryFolders = kSystemFolders;
    return settings;
}

std::vector<std::string> Unknown(SpellingBridge& bridge, const StyledText& text) {
    std::vector<std::string> words;
    const std::u16string plain = text.Text();
    for (const CheckedWord& word : bridge.UnknownWords(text))
        words.push_back(Utf16ToUtf8(plain.substr(word.start, word.length)));
    return words;
}

struct UnknownCase {
    std::string language;
    std::string text;
    std::vector<std::string> unknown;
    bool ignoreUppercase = false;
};

// (That the words of a note's anchor are never looked at is the spell command's test.)
TEST(SpellingBridge, FindsTheUnknownWordsAndPassesUppercaseOnesWhenAsked) {
    const UnknownCase cases[] = {
        {"fr", "L'été, aujourd'hui, l’été et le porte-avions arrivent à Noël.", {}},
        {"fr", "Une fôte d'ortografe chez le prud'homme, presqu'île.", {"fôte", "d'ortografe"}},
        {"fr", "En 1998, le B2 et 3e : ÉTÉ mais pas étéé.", {"étéé"}},
        {"fr_FR", "« Œuvre » rendez-vous, rendez-vou", {"rendez-vou"}},
        {"en", "The colour of teh sky, don't worry; a well-known fact.", {"colour", "teh"}},
        {"en-US", "Its' fine -- it's naive recieve", {"recieve"}},
        {"en", "QWXZ said zorkle well", {"zorkle"}, true},
    };
    TempDir folder;
    for (const UnknownCase& unknown : cases) {
        SpellingSettings settings = Settings(unknown.language, folder);
        settings.ignoreUppercase = unknown.ignoreUppercase;
        SpellingBridge bridge;
        ASSERT_EQ(bridge.Start(settings), "") << unknown.language;
        EXPECT_EQ(Unknown(bridge, StyledText(Utf8ToUtf16(unknown.text))), unknown.unknown)
            << unknown.text;
    }
}

TEST(SpellingBridge, CorrectionKeepsFormatsAndNotesAndFollowsEachDecision) {
    TempDir folder;
    SpellingBridge bridge;
    ASSERT_EQ(bridge.Start(Settings("fr", folder)), "");
    CharFormat bold;
    bold.bold = true;
    CharFormat note;
    note.isProtected = true;
    StyledText text(u"Une ");
    text.Insert(text.Length(), u"fôte", bold);
    text.Insert(text.Length(), u"xqnote", note);
    text.Insert(text.Length(), u" ici·et fôte, puis zorglub, zorglub et plok fin", CharFormat{});

    std::vector<std::string> asked;
    const std::vector<SpellingDecision> decisions = {
        {SpellingAction::Replace, u"faute"},  // the bold one
        {SpellingAction::Ignore, {}},         // the second fôte
        {SpellingAction::IgnoreAll, {}},      // zorglub, and so the next one too
        {SpellingAction::Stop, {}},           // plok
    };
    bool stopped = false;
    const StyledText corrected = bridge.Correct(
        text, 3,
        [&](const SpellingQuestion& question) {
            EXPECT_EQ(question.box, 3);
            asked.push_back(Utf16ToUtf8(question.spelling));
            if (question.spelling == u"fôte") {
                EXPECT_NE(
                    std::find(question.suggestions.begin(), question.suggestions.end(), u"fête"),
                    question.suggestions.end());
            }
            return decisions.at(asked.size() - 1);
        },
        stopped);
    EXPECT_TRUE(stopped);
    EXPECT_EQ(asked, (std::vector<std::string>{"fôte", "fôte", "zorglub", "plok"}));
    EXPECT_EQ(corrected.Text(), u"Une fautexqnote ici·et fôte, puis zorglub, zorglub et plok fin");
    EXPECT_TRUE(corrected.FormatAt(4).bold);
    EXPECT_TRUE(corrected.FormatAt(8).bold);
    EXPECT_TRUE(corrected.FormatAt(9).isProtected);
    EXPECT_FALSE(corrected.FormatAt(15).bold);
}

TEST(SpellingBridge, AddedWordsAreKeptInThePersonalDictionaryForTheNextCheck) {
    TempDir folder;
    const SpellingSettings settings = Settings("en", folder);
    SpellingBridge bridge;
    ASSERT_EQ(bridge.Start(settings), "");
    bool stopped = false;
    bridge.Correct(
        StyledText(u"Tessarinian words"), 0,
        [](const SpellingQuestion&) {
            return SpellingDecision{SpellingAction::AddToDictionary, {}};
        },
        stopped);
    bridge.Stop();
    EXPECT_EQ(testing::ReadBytes(settings.personalDictionary), "Tessarinian\n");

    SpellingBridge next;
    ASSERT_EQ(next.Start(settings), "");
    EXPECT_TRUE(Unknown(next, StyledText(u"Tessarinian words")).empty());
}

TEST(SpellingBridge, AMissingDictionaryIsToldWithTheFoldersAndTheLocaleIsTheFallback) {
    TempDir folder;
    SpellingSettings settings = Settings("xx", folder);
    {
        ScopedEnvironment all("LC_ALL", "fr_FR.UTF-8");
        SpellingBridge bridge;
        ASSERT_EQ(bridge.Start(settings), "");
        EXPECT_TRUE(bridge.Known(u"aujourd'hui"));
    }
    ScopedEnvironment all("LC_ALL", "C");
    settings.dictionaryFolders = {folder.path()};
    SpellingBridge bridge;
    EXPECT_EQ(bridge.Start(settings),
              "No spelling dictionary for the language \"xx\" nor for the locale's \"\" in:\n" +
                  folder.path().string());
    EXPECT_FALSE(bridge.Started());
}

TEST(SpellingCommand, CorrectsTheBoxesCountsThemAgainAndTypeTwoDoesNothing) {
    testing::PanelSession panel;
    EditorSession& session = panel.session;
    session.configuration.general.language = "en";
    session.story.boxes[2] = StyledText(u"A speling fault");
    session.story.boxes[6] = StyledText(u"Fine text");
    int questions = 0;
    const SpellingReviewer replace = [&](const SpellingQuestion&) {
        ++questions;
        return SpellingDecision{SpellingAction::Replace, u"spelling"};
    };

    session.preferences.CheckSpellingType = 2;
    EXPECT_EQ(CheckSpelling(session, replace), SpellingOutcome::NotRun);
    EXPECT_EQ(questions, 0);
    EXPECT_TRUE(session.window.Status().text.empty());

    session.preferences.CheckSpellingType = 1;
    EXPECT_EQ(CheckSpelling(session, replace), SpellingOutcome::Done);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(session.story.boxes[2].Text(), u"A spelling fault");
    EXPECT_EQ(session.story.counters[2].count, 16);
    EXPECT_TRUE(session.storyModified);
    EXPECT_EQ(session.window.Status().text, "Spell checking terminated");
}

}  // namespace
}  // namespace tessarin
