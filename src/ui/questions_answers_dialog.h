#pragma once

#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QDialog>
#include <array>

#include "editing/questions_answers.h"

class QCheckBox;
class QLineEdit;
class QVBoxLayout;

namespace tessarin {

// frmQuestionsAnswers: the two roles of the questions-and-answers mode, each in a FrameQA
// with txtQA, chkBold, chkItalic, chkUnderline, chkInter1 to chkInter3, chkNewline and the
// attributes of the following text, chkFollowingBold ... chkFollowingInter3. Checking one
// inter style clears the other two. cmdOK stores both roles in the preferences.
class QuestionsAnswersDialog : public QDialog {
    Q_OBJECT
  public:
    QuestionsAnswersDialog(EditorSession& session, QWidget* parent);

    QaRoles Roles() const;

  private:
    struct AttributeBoxes {
        QCheckBox* bold = nullptr;
        QCheckBox* italic = nullptr;
        QCheckBox* underline = nullptr;
        std::array<QCheckBox*, 3> inter{};
    };
    struct RoleControls {
        QLineEdit* label = nullptr;
        AttributeBoxes labelAttributes;
        QCheckBox* newline = nullptr;
        AttributeBoxes following;
    };

    QWidget* BuildFrame(const QString& title, RoleControls& controls);
    AttributeBoxes BuildAttributes(QWidget* frame, const char* prefix, QVBoxLayout* layout);
    static void Show(const AttributeBoxes& boxes, const QaAttributes& attributes);
    static QaAttributes Read(const AttributeBoxes& boxes);

    EditorSession& session_;
    std::array<RoleControls, 2> roles_;
};

}  // namespace tessarin
