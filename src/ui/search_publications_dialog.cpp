#include "ui/search_publications_dialog.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "config/publications_tree.h"
#include "metadata/field_labels.h"
#include "metadata/publication_selection.h"
#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr const char* kNameDesign = "Name";

QRadioButton* NewOption(const QString& name, const QString& caption, QWidget* parent) {
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(name);
    return option;
}

}  // namespace

SearchPublicationsDialog::SearchPublicationsDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      title_(ConfiguredTitle(session, "SearchPublications", "Search publications")),
      text_(new QLineEdit(this)),
      byName_(NewOption(QStringLiteral("optSearchName"), QString::fromUtf8(kNameDesign), this)),
      byFirstCode_(NewOption(QStringLiteral("optSearchCode1"),
                             ToQString(LabelCaption(session.window, "lblCodeLocal1")), this)) {
    setObjectName(QStringLiteral("frmSearchPublications"));
    const WindowState& window = session.window;
    auto* bySecondCode = NewOption(QStringLiteral("optSearchCode2"),
                                   ToQString(LabelCaption(window, "lblCodeLocal2")), this);
    auto* preferred = NewOption(
        QStringLiteral("optPreferredPublications"),
        ConfiguredTitle(session, "DisplayPublicationsPreferred", "Preferred publications"), this);
    auto* all =
        NewOption(QStringLiteral("optAllPublications"),
                  ConfiguredTitle(session, "DisplayPublicationsFull", "All publications"), this);
    (session.configuration.publications.allPublications ? all : preferred)->setChecked(true);
    byName_->setChecked(true);
    text_->setObjectName(QStringLiteral("txtSearch"));

    auto* views = new QGroupBox(this);
    auto* viewsLayout = new QVBoxLayout(views);
    viewsLayout->addWidget(preferred);
    viewsLayout->addWidget(all);
    auto* modes = new QGroupBox(this);
    auto* modesLayout = new QVBoxLayout(modes);
    modesLayout->addWidget(byName_);
    modesLayout->addWidget(byFirstCode_);
    modesLayout->addWidget(bySecondCode);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = buttons->addButton(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOK"));
    QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setText(ConfiguredTitle(session, "Cancel", "Cancel"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(views);
    layout->addWidget(modes);
    layout->addWidget(text_);
    layout->addWidget(buttons);

    connect(preferred, &QRadioButton::clicked, this, [this] { SwitchView(false); });
    connect(all, &QRadioButton::clicked, this, [this] { SwitchView(true); });
    connect(ok, &QPushButton::clicked, this, &SearchPublicationsDialog::Search);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowCount();
}

void SearchPublicationsDialog::SwitchView(bool allPublications) {
    const auto& document = session_.paths.configurationFile;
    if (allPublications) {
        ShowAllPublications(document, session_.preferences, session_.configuration,
                            session_.window);
    } else {
        ShowPreferredPublications(document, session_.preferences, session_.configuration,
                                  session_.window);
    }
    ShowCount();
    emit viewChanged();
}

void SearchPublicationsDialog::Search() {
    const PublicationSearchMode mode = byName_->isChecked() ? PublicationSearchMode::Name
                                       : byFirstCode_->isChecked()
                                           ? PublicationSearchMode::FirstCode
                                           : PublicationSearchMode::SecondCode;
    firstMatch_ =
        SearchPublications(session_.window, session_.highlights, ToUtf8(text_->text()), mode);
    accept();
}

void SearchPublicationsDialog::ShowCount() {
    setWindowTitle(title_ + ToQString(PublicationsCountText(session_.window)));
}

}  // namespace tessarin
