#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "config/profile_file.h"
#include "session/editor_session.h"

namespace tessarin {

// Questions and answers: while the mode is on, each Enter in the main box starts the next
// speaker's paragraph with their label, in the label's attributes, and what is then typed
// takes the attributes of that speaker's text.

inline constexpr std::string_view kQaSection = "QA";

// The attributes of a label or of the text that follows it. At most one inter style is on;
// it takes the place of bold, italic and underline.
struct QaAttributes {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int inter = 0;  // 1 to 3, 0 none

    friend bool operator==(const QaAttributes&, const QaAttributes&) = default;
};

// One role: 0 the question, 1 the answer.
struct QaRole {
    std::string label;  // txtQA
    QaAttributes labelAttributes;
    bool newline = false;  // chkNewline: a line break follows the label
    QaAttributes following;

    friend bool operator==(const QaRole&, const QaRole&) = default;
};
using QaRoles = std::array<QaRole, 2>;

// The QA section of the preferences: QATextN, QABoldN, QAItalicN, QAUnderlineN, QAInterN1 to
// QAInterN3, QANewlineN, QAFollowingBoldN, ... QAFollowingInterN3, with N 1 for the question
// and 2 for the answer; flags are "1" and "0". Labels keep their blanks: a blank is stored as
// "%20" and "%" as "%25".
QaRoles ReadQaRoles(const ProfileFile& profile);
bool WriteQaRoles(ProfileFile& profile, const QaRoles& roles);

// The format that attributes give, with the inter colours of the preferences.
CharFormat QaFormat(const QaAttributes& attributes, const Preferences& preferences);

class QuestionsAnswers {
  public:
    // The mode is on while the QA button stays pressed: a new story releases it.
    bool On(const EditorSession& session) const;
    int NextRole() const { return nextRole_; }

    // cmdOK of frmQuestionsAnswers: the mode goes on with roles, and the button QA and
    // mnuFormatQuestionsAnswers show it. When the main box is empty
    // the question's label goes in at once and the answer comes next; otherwise the question
    // comes next. Returns the caret behind what was put.
    std::size_t Start(EditorSession& session, const QaRoles& roles, std::size_t caret);

    // The mode goes off (the button again, cmdCancel) and the button is released.
    void Stop(EditorSession& session);

    // Enter typed into box over [position, position + replacedLength); modifier when Shift,
    // Ctrl or Alt was held. Outside the mode, in another box or with a modifier, nothing:
    // the caller types the line break itself. Otherwise the line break, then the next role's
    // label; returns the caret.
    std::optional<std::size_t> Enter(EditorSession& session, int box, std::size_t position,
                                     std::size_t replacedLength, bool modifier);

    // The key just typed into [start, start + length) of box: typed right behind a label,
    // it takes the attributes of that role's text, and what follows it inherits them.
    void Typed(EditorSession& session, int box, std::size_t start, std::size_t length);

  private:
    std::size_t WriteRole(EditorSession& session, std::size_t caret);

    bool on_ = false;
    int nextRole_ = 0;
    QaRoles roles_;
    std::optional<std::size_t> labelEnd_;  // where the text of the last label starts
    QaAttributes pending_;
};

}  // namespace tessarin
