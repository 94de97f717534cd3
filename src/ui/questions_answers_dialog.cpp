#include "ui/questions_answers_dialog.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {

QuestionsAnswersDialog::QuestionsAnswersDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent), session_(session) {
    setObjectName(QStringLiteral("frmQuestionsAnswers"));
    setWindowTitle(ConfiguredTitle(session_, "FormatQuestionsAnswers", "Questions and answers"));
    auto* frames = new QHBoxLayout;
    frames->addWidget(
        BuildFrame(ConfiguredCaption(session_, "FormatQuestions", "Questions"), roles_[0]));
    frames->addWidget(
        BuildFrame(ConfiguredCaption(session_, "FormatAnswers", "Answers"), roles_[1]));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(ConfiguredCaption(session_, "Cancel", "Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(frames);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, [this] {
        WriteQaRoles(session_.profile, Roles());
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    const QaRoles stored = ReadQaRoles(session.profile);
    for (std::size_t role = 0; role < roles_.size(); ++role) {
        roles_[role].label->setText(QString::fromStdString(stored[role].label));
        Show(roles_[role].labelAttributes, stored[role].labelAttributes);
        roles_[role].newline->setChecked(stored[role].newline);
        Show(roles_[role].following, stored[role].following);
    }
}

QWidget* QuestionsAnswersDialog::BuildFrame(const QString& title, RoleControls& controls) {
    auto* frame = new QGroupBox(title, this);
    frame->setObjectName(QStringLiteral("FrameQA"));
    auto* layout = new QVBoxLayout(frame);
    controls.label = new QLineEdit(frame);
    controls.label->setObjectName(QStringLiteral("txtQA"));
    layout->addWidget(controls.label);
    controls.labelAttributes = BuildAttributes(frame, "chk", layout);
    controls.newline =
        new QCheckBox(ConfiguredCaption(session_, "FormatNewline", "New line"), frame);
    controls.newline->setObjectName(QStringLiteral("chkNewline"));
    layout->addWidget(controls.newline);
    layout->addWidget(
        new QLabel(ConfiguredCaption(session_, "FormatFollowingText", "Following text"), frame));
    controls.following = BuildAttributes(frame, "chkFollowing", layout);
    return frame;
}

QuestionsAnswersDialog::AttributeBoxes QuestionsAnswersDialog::BuildAttributes(
    QWidget* frame, const char* prefix, QVBoxLayout* layout) {
    // Each box is captioned as the Format menu's entry for the same attribute.
    const auto box = [&](const char* name, const std::string& key, const char* design) {
        auto* check = new QCheckBox(ConfiguredTitle(session_, key, design), frame);
        check->setObjectName(QLatin1String(prefix) + QLatin1String(name));
        layout->addWidget(check);
        return check;
    };
    AttributeBoxes boxes;
    boxes.bold = box("Bold", "FormatBold", "Bold");
    boxes.italic = box("Italic", "FormatItalic", "Italic");
    boxes.underline = box("Underline", "FormatUnderline", "Underline");
    for (std::size_t style = 0; style < boxes.inter.size(); ++style) {
        const std::string number = std::to_string(style + 1);
        boxes.inter[style] =
            box(("Inter" + number).c_str(), "FormatInter" + number, ("Inter " + number).c_str());
    }
    // At most one inter style: checking one clears the other two.
    for (QCheckBox* inter : boxes.inter) {
        connect(inter, &QCheckBox::toggled, this, [inter, all = boxes.inter](bool on) {
            if (!on) return;
            for (QCheckBox* other : all) {
                if (other != inter) other->setChecked(false);
            }
        });
    }
    return boxes;
}

void QuestionsAnswersDialog::Show(const AttributeBoxes& boxes, const QaAttributes& attributes) {
    boxes.bold->setChecked(attributes.bold);
    boxes.italic->setChecked(attributes.italic);
    boxes.underline->setChecked(attributes.underline);
    for (std::size_t style = 0; style < boxes.inter.size(); ++style) {
        boxes.inter[style]->setChecked(attributes.inter == static_cast<int>(style) + 1);
    }
}

QaAttributes QuestionsAnswersDialog::Read(const AttributeBoxes& boxes) {
    QaAttributes attributes;
    attributes.bold = boxes.bold->isChecked();
    attributes.italic = boxes.italic->isChecked();
    attributes.underline = boxes.underline->isChecked();
    for (std::size_t style = 0; style < boxes.inter.size(); ++style) {
        if (boxes.inter[style]->isChecked()) attributes.inter = static_cast<int>(style) + 1;
    }
    return attributes;
}

QaRoles QuestionsAnswersDialog::Roles() const {
    QaRoles roles;
    for (std::size_t role = 0; role < roles.size(); ++role) {
        roles[role].label = roles_[role].label->text().toStdString();
        roles[role].labelAttributes = Read(roles_[role].labelAttributes);
        roles[role].newline = roles_[role].newline->isChecked();
        roles[role].following = Read(roles_[role].following);
    }
    return roles;
}

}  // namespace tessarin
