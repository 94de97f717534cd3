#include "ui/select_configuration_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/configuration_selection.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/named_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

QListWidget* NamesList(const char* name, const std::vector<std::string>& names) {
    auto* list = Named(new QListWidget, name);
    for (const std::string& entry : names)
        list->addItem(ToQString(entry));
    return list;
}

}  // namespace

SelectConfigurationDialog::SelectConfigurationDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent), session_(session) {
    setObjectName(QStringLiteral("frmSelectConfiguration"));
    setWindowTitle(ConfiguredTitle(session, "ToolsConfiguration", "Configuration"));
    const NamedDocuments documents = ListNamedDocuments(session.paths.appDir);
    configurations_ = NamesList("lstTessarin", documents.configurations);
    tips_ = NamesList("lstTessarinTipOfTheDay", documents.tips);
    auto* configurationLabel =
        Named(new QLabel(ConfiguredCaption(session, "ToolsConfigurationTessarin",
                                           "Select Tessarin configuration file")),
              "lblTessarin");
    auto* tipLabel =
        Named(new QLabel(ConfiguredCaption(session, "ToolsConfigurationTipOfTheDay",
                                           "Select 'Tip of the Day' configuration file")),
              "lblTipOfTheDay");
    ok_ = Named(new QPushButton(QStringLiteral("OK")), "cmdOK");
    auto* cancel =
        Named(new QPushButton(ConfiguredCaption(session, "Cancel", "Cancel")), "cmdCancel");
    ok_->setEnabled(false);

    auto* lists = new QGridLayout;
    lists->addWidget(configurationLabel, 0, 0);
    lists->addWidget(tipLabel, 0, 1);
    lists->addWidget(configurations_, 1, 0);
    lists->addWidget(tips_, 1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists);
    layout->addLayout(buttons);

    for (QListWidget* list : {configurations_, tips_})
        connect(list, &QListWidget::itemSelectionChanged, this, [this] { ok_->setEnabled(true); });
    connect(ok_, &QPushButton::clicked, this, &SelectConfigurationDialog::Select);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void SelectConfigurationDialog::Select() {
    if (QListWidgetItem* tip = tips_->currentItem(); tip != nullptr && tip->isSelected()) {
        const std::string problem = SelectTipOfTheDay(session_.paths, ToUtf8(tip->text()));
        if (!problem.empty()) session_.user.Tell(problem, MessageIcon::Exclamation);
    }
    QListWidgetItem* chosen = configurations_->currentItem();
    if (chosen != nullptr && chosen->isSelected()) {
        std::string problem;
        SelectConfiguration(session_, ToUtf8(chosen->text()), problem);
        if (!problem.empty()) session_.user.Tell(problem, MessageIcon::Exclamation);
    }
    accept();
}

}  // namespace tessarin
