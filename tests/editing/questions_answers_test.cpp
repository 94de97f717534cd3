#include "editing/questions_answers.h"

#include <gtest/gtest.h>

#include "editing/copy_fit.h"
#include "editing/panel_session.h"
#include "editing/story_forms.h"

namespace tessarin {
namespace {

class QuestionsAnswersTest : public ::testing::Test, public testing::PanelSession {
  protected:
    QuestionsAnswersTest() {
        roles[0] = {"Q : ", {.bold = true}, false, {.italic = true}};
        roles[1] = {"R", {.inter = 2}, true, {}};
    }
    std::u16string Main() { return session.story.boxes[kMainTextBox].Text(); }
    CharFormat At(std::size_t position) {
        return session.story.boxes[kMainTextBox].FormatAt(position);
    }

    QaRoles roles;
    QuestionsAnswers qa;
};

TEST_F(QuestionsAnswersTest, RolesSurviveThePreferencesFileWithTheirBlanks) {
    roles[1].label = " 100% ";
    roles[1].following.inter = 3;
    ASSERT_TRUE(WriteQaRoles(session.profile, roles));
    EXPECT_EQ(session.profile.Read("QA", "QAText1"), "Q%20:%20");
    EXPECT_EQ(ReadQaRoles(session.profile), roles);
}

TEST_F(QuestionsAnswersTest, EnterInTheMainBoxPutsTheNextLabel) {
    EXPECT_EQ(qa.Start(session, roles, 0), 4u);
    EXPECT_EQ(Main(), u"Q : ");
    EXPECT_TRUE(At(0).bold);
    TypeText(session, kMainTextBox, 4, u"x");
    qa.Typed(session, kMainTextBox, 4, 1);
    EXPECT_TRUE(At(4).italic && !At(4).bold);

    EXPECT_FALSE(qa.Enter(session, kMainTextBox, 5, 0, true));  // shift: the caller's break
    EXPECT_FALSE(qa.Enter(session, 3, 0, 0, false));
    EXPECT_EQ(qa.Enter(session, kMainTextBox, 5, 0, false), 10u);
    EXPECT_EQ(Main(), u"Q : x\r\nR\r\n");
    EXPECT_EQ(At(7).colour, session.preferences.InterColor2);
    EXPECT_EQ(qa.NextRole(), 0);
    EXPECT_EQ(session.story.counters[kMainTextBox].count, 6);
}

TEST_F(QuestionsAnswersTest, ModeStartsWithTheQuestionOverTextAndEndsWithANewStory) {
    session.story.boxes[kMainTextBox] = StyledText(u"d\u00E9j\u00E0");
    EXPECT_EQ(qa.Start(session, roles, 2), 2u);
    EXPECT_EQ(qa.NextRole(), 0);
    EXPECT_TRUE(qa.On(session));
    RefreshStoryPanel(session);
    EXPECT_FALSE(qa.On(session));
    EXPECT_FALSE(qa.Enter(session, kMainTextBox, 0, 0, false));
}

}  // namespace
}  // namespace tessarin
