#include "editing/notes_edit.h"

#include <gtest/gtest.h>

#include "config/story_section.h"
#include "editing/bookmark_anchor.h"
#include "editing/copy_fit.h"
#include "editing/panel_session.h"
#include "editing/styled_sample.h"
#include "editing/undo_ring.h"
#include "story/word_count.h"

namespace tessarin {
namespace {

using testing::Bracketed;
using testing::Sample;

constexpr LocalDateTime kWhen{2026, 3, 7, 9, 5, 4};

class NotesTest : public ::testing::Test, public testing::PanelSession {
  protected:
    NotesTest() {
        XmlDocument story;
        story.LoadBytes("<Story/>");
        XmlDocument services;
        services.LoadBytes("<NewsServices/>");
        ReadStoryAndNewsServices(story.DocumentElement(), services.DocumentElement(),
                                 session.configuration, session.window);
        session.configuration.identity = {"Jeanne Dupont", "", "", "JD"};
    }
    std::string Root() { return session.window.Tree("treeNotes").Roots().front().text; }
};

TEST_F(NotesTest, TitlesFollowTheBookmarkForms) {
    EXPECT_EQ(NewNoteTitle(session, kWhen), "JD 07/03/2026 09:05:04");
    session.preferences.BookmarksInitials = false;
    session.preferences.BookmarksDate = "yyyy-m-d";
    session.preferences.BookmarksTime = "h:mm";
    EXPECT_EQ(NewNoteTitle(session, kWhen), "Jeanne Dupont 2026-3-7 9:05");
}

TEST_F(NotesTest, BookmarkAnchorLeavesCountsAloneAndCannotBeUndoneWithoutItsNote) {
    session.story.boxes[3] = Sample(u"deux mots");
    RecountAllBoxes(session);
    RecordUndo(session, 3);
    const std::optional<std::size_t> note = AddNote(session, TextSelection{3, 5, 4}, kWhen);
    ASSERT_EQ(note, 0u);
    EXPECT_EQ(Bracketed(session.story.boxes[3]), u"deux [JD 07/03/2026 09:05:04]mots");
    EXPECT_EQ(session.story.counters[3].count, 9);
    EXPECT_EQ(CountStoryWords(session.story.boxes[3]), 2);
    EXPECT_EQ(session.story.boxes[3].FormatAt(5).highlight, session.preferences.BookmarksColor);
    EXPECT_FALSE(Undo(session));
    EXPECT_EQ(Root(), "Notes [1]");

    // Typing over a selection across the anchor keeps it.
    TypeText(session, 3, 2, u"X", 27);
    EXPECT_EQ(Bracketed(session.story.boxes[3]), u"deX[JD 07/03/2026 09:05:04]ts");
    EXPECT_EQ(BookmarkAnchor(session, 0), (TextSelection{3, 3, 22}));

    EXPECT_TRUE(RemoveNote(session, 0));
    EXPECT_EQ(user.questions.back(), "Remove note JD 07/03/2026 09:05:04");
    EXPECT_EQ(Bracketed(session.story.boxes[3]), u"deXts");
    EXPECT_EQ(session.story.counters[3].count, 5);
    EXPECT_EQ(session.story.counters[3].noteCharacters, 0);
    EXPECT_EQ(Root(), "Notes [0]");
}

TEST_F(NotesTest, PlainNotesKeepTheUndoRingAndEmptyNewNotesGo) {
    session.story.boxes[6] = Sample(u"texte");
    RecountAllBoxes(session);
    RecordUndo(session, 6);
    TypeText(session, 6, 5, u"s");
    RecordUndo(session, 6);
    AddNote(session, std::nullopt, kWhen);
    CloseNote(session, 0, "", true);
    EXPECT_TRUE(session.story.notes.empty());

    AddNote(session, std::nullopt, kWhen);
    CloseNote(session, 0, "un\ndeux", true);
    EXPECT_EQ(session.story.notes[0].text, "un\r\ndeux");
    user.QueueAnswer(Answer::No);
    EXPECT_FALSE(RemoveNote(session, 0));
    EXPECT_TRUE(RemoveNote(session, 0));
    EXPECT_TRUE(Undo(session));
    EXPECT_EQ(session.story.boxes[6].Text(), u"texte");
}

TEST_F(NotesTest, ForeignNotesNeedTheRight) {
    session.story.notes.push_back({"XY 01/01/2026 10:00:00", "lu", false, true});
    session.configuration.story.notes.manageAllNotes = false;
    ShowNotes(session);
    EXPECT_EQ(session.window.Tree("treeNotes").Roots().front().children.front().colour,
              kForeignNoteColour);
    CloseNote(session, 0, "changed", false);
    EXPECT_EQ(session.story.notes[0].text, "lu");
    EXPECT_FALSE(RemoveNote(session, 0));
    EXPECT_TRUE(user.questions.empty());
    session.configuration.story.notes.manageAllNotes = true;
    EXPECT_TRUE(RemoveNote(session, 0));
}

}  // namespace
}  // namespace tessarin
