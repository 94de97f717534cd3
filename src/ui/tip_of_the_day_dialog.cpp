#include "ui/tip_of_the_day_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "tools/tips_of_the_day.h"
#include "ui/configured_caption.h"
#include "ui/named_widget.h"

namespace tessarin {
namespace {

constexpr int kTipWidth = 420;
constexpr int kTipHeight = 120;

}  // namespace

TipOfTheDayDialog::TipOfTheDayDialog(EditorSession& session, std::vector<std::string> tips,
                                     QWidget* parent)
    : QDialog(parent),
      session_(session),
      tips_(std::move(tips)),
      tip_(Named(new QLabel, "lblTipOfTheDay")),
      showAtStartup_(Named(new QCheckBox(tr("Show tips at startup")), "chkShowTipsAtStartup")) {
    setObjectName(QStringLiteral("frmTipOfTheDay"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(ConfiguredTitle(session, "TipOfTheDay", "Tip of the day"));
    tip_->setWordWrap(true);
    tip_->setTextFormat(Qt::PlainText);
    tip_->setMinimumSize(kTipWidth, kTipHeight);
    tip_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    showAtStartup_->setChecked(session.preferences.TipOfTheDay.ShowTipsAtStartup);

    auto* buttons = new QDialogButtonBox;
    auto* previous =
        Named(buttons->addButton(tr("Previous"), QDialogButtonBox::ActionRole), "cmdPreviousTip");
    auto* next = Named(buttons->addButton(tr("Next"), QDialogButtonBox::ActionRole), "cmdNextTip");
    // Closing the tips is worded as the newsroom words closing a story.
    auto* close = Named(buttons->addButton(ConfiguredTitle(session, "FileClose", "Close"),
                                           QDialogButtonBox::RejectRole),
                        "cmdClose");
    next->setDefault(true);
    connect(previous, &QPushButton::clicked, this,
            [this] { Show(TipInRing(static_cast<std::int64_t>(shown_) - 1, tips_.size())); });
    connect(next, &QPushButton::clicked, this,
            [this] { Show(TipInRing(static_cast<std::int64_t>(shown_) + 1, tips_.size())); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, [this] {
        RememberTips(session_.preferences, session_.profile, shown_, showAtStartup_->isChecked());
    });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tip_, 1);
    layout->addWidget(showAtStartup_);
    layout->addWidget(buttons);
    Show(FirstTipToShow(session.preferences.TipOfTheDay, tips_.size()));
}

void TipOfTheDayDialog::Show(std::size_t tip) {
    shown_ = tip;
    tip_->setText(QString::fromStdString(tips_[tip]));
}

}  // namespace tessarin
