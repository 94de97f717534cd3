#include "ui/preferences_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "config/story_section.h"
#include "ui/colour_button.h"
#include "ui/configured_caption.h"
#include "ui/preference_font.h"

namespace tessarin {

namespace {

QString FromUtf8(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A row of a label, the control it names and, when given, a button that serves the control.
void AddLabelled(QBoxLayout& layout, const QString& caption, QWidget* control,
                 QWidget* button = nullptr) {
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(caption));
    row->addWidget(control, button ? 1 : 0);
    if (button) {
        row->addWidget(button);
    } else {
        row->addStretch();
    }
    layout.addLayout(row);
}

// A page in a frame that scrolls it when the window is smaller than the page. The frame asks
// for the page's whole size, so that the window opens as large as its pages where the screen
// has room (a window opens within two thirds of the screen).
class PageFrame : public QScrollArea {
  public:
    explicit PageFrame(QWidget* page) {
        setWidget(page);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
    }
    QSize sizeHint() const override {
        return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
    }
};

QScrollArea* Scrolled(QWidget* page) {
    return new PageFrame(page);
}

}  // namespace

PreferencesDialog::PreferencesDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent), session_(session), choice_(BeginPreferencesChoice(session)) {
    setObjectName(QStringLiteral("frmPreferences"));
    setWindowTitle(ConfiguredTitle(session_, "ToolsPreferences", "Preferences"));

    // Every tab of the row shows, and a page taller than the room scrolls, so that the window
    // fits a laptop's screen.
    auto* pages = new QTabWidget;
    pages->setObjectName(QStringLiteral("tabPreferences"));
    pages->setUsesScrollButtons(false);
    pages->addTab(Scrolled(DisplayPage()), ConfiguredTitle(session_, "Display", "Display"));
    pages->addTab(Scrolled(EditingPage()), ConfiguredTitle(session_, "Edition", "Editing"));
    pages->addTab(Scrolled(MetadataPage()),
                  ConfiguredTitle(session_, "DisplayMetadata", "Metadata"));
    pages->addTab(Scrolled(FilesPage()), QStringLiteral("Photos and files"));
    pages->addTab(Scrolled(SendingPage()), QStringLiteral("Sending"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    QPushButton* cancel = buttons->button(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setText(ConfiguredCaption(session_, "Cancel", "Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages);
    layout->addWidget(buttons);
}

void PreferencesDialog::accept() {
    AcceptPreferences(session_, choice_);
    QDialog::accept();
}

QBoxLayout& PreferencesDialog::Group(QBoxLayout& page, const char* key, const char* designCaption) {
    auto* group = new QGroupBox(ConfiguredCaption(session_, key, designCaption));
    page.addWidget(group);
    return *new QVBoxLayout(group);
}

QCheckBox* PreferencesDialog::AddFlag(QBoxLayout& layout, const char* key, const char* captionKey,
                                      const char* designCaption, Flag flag) {
    auto* box = new QCheckBox(ConfiguredCaption(session_, captionKey, designCaption));
    box->setObjectName(QStringLiteral("chk") + QLatin1String(key));
    box->setChecked(choice_.preferences.*flag);
    connect(box, &QCheckBox::toggled, this,
            [this, flag](bool checked) { choice_.preferences.*flag = checked; });
    layout.addWidget(box);
    return box;
}

void PreferencesDialog::AddFlagOptions(QBoxLayout& layout, Flag flag, const char* onName,
                                       const char* onKey, const char* onCaption,
                                       const char* offName, const char* offKey,
                                       const char* offCaption) {
    auto* on = new QRadioButton(ConfiguredCaption(session_, onKey, onCaption));
    auto* off = new QRadioButton(ConfiguredCaption(session_, offKey, offCaption));
    on->setObjectName(QLatin1String(onName));
    off->setObjectName(QLatin1String(offName));
    (choice_.preferences.*flag ? on : off)->setChecked(true);
    connect(on, &QRadioButton::toggled, this,
            [this, flag](bool checked) { choice_.preferences.*flag = checked; });
    layout.addWidget(on);
    layout.addWidget(off);
}

void PreferencesDialog::AddColour(QBoxLayout& layout, const char* key, const char* captionKey,
                                  const char* designCaption, Colour colour) {
    auto* button =
        new ColourButton(QStringLiteral("cmd") + QLatin1String(key), choice_.preferences.*colour);
    connect(button, &ColourButton::colourChosen, this,
            [this, colour](OleColour chosen) { choice_.preferences.*colour = chosen; });
    AddLabelled(layout, ConfiguredCaption(session_, captionKey, designCaption), button);
}

void PreferencesDialog::AddHighlightColour(QBoxLayout& layout) {
    auto* button = new ColourButton(QStringLiteral("cmdColorInformations"),
                                    choice_.preferences.ColorInformations);
    connect(button, &ColourButton::colourChosen, this,
            [this](OleColour chosen) { ChooseHighlightColour(session_, choice_, chosen); });
    AddLabelled(layout, ConfiguredCaption(session_, "", "Highlight colour"), button);
}

void PreferencesDialog::AddNumber(QBoxLayout& layout, const char* key, const char* captionKey,
                                  const char* designCaption, Number number, IntegerRange range) {
    auto* entry = new QSpinBox;
    entry->setObjectName(QStringLiteral("txt") + QLatin1String(key));
    entry->setRange(range.minimum, range.maximum);
    entry->setValue(choice_.preferences.*number);
    connect(entry, &QSpinBox::valueChanged, this,
            [this, number](int value) { choice_.preferences.*number = value; });
    AddLabelled(layout, ConfiguredCaption(session_, captionKey, designCaption), entry);
}

QLineEdit* PreferencesDialog::AddText(QBoxLayout& layout, const char* key, const char* captionKey,
                                      const char* designCaption, Text text, QWidget* button) {
    auto* entry = new QLineEdit(FromUtf8(choice_.preferences.*text));
    entry->setObjectName(QStringLiteral("txt") + QLatin1String(key));
    connect(entry, &QLineEdit::textChanged, this, [this, text](const QString& value) {
        choice_.preferences.*text = value.toStdString();
    });
    AddLabelled(layout, ConfiguredCaption(session_, captionKey, designCaption), entry, button);
    return entry;
}

void PreferencesDialog::AddFonts(QBoxLayout& page) {
    QBoxLayout& layout = Group(page, "PreferencesFontsLabel", "Fonts");
    fontViews_ = new QComboBox;
    fontViews_->setObjectName(QStringLiteral("lstFonts"));
    for (std::size_t entry : kOfferedFontEntries) {
        QString view;
        if (entry == kTeleprompterFont) {
            view = ConfiguredCaption(session_, "DisplayTeleprompter", "Teleprompter");
        } else {
            const int box = static_cast<int>(entry);
            view = FromUtf8(session_.window.Control(TextBoxLabelName(box)).caption);
            if (view.isEmpty()) view = QStringLiteral("Text box %1").arg(box + 1);
        }
        fontViews_->addItem(view, static_cast<qulonglong>(entry));
    }
    fontSample_ = new QLabel;
    fontSample_->setObjectName(QStringLiteral("lblFontSample"));
    auto* button =
        new QPushButton(ConfiguredCaption(session_, "PreferencesFontsLabel", "Fonts") + "...");
    button->setObjectName(QStringLiteral("cmdFont"));
    connect(fontViews_, &QComboBox::currentIndexChanged, this, &PreferencesDialog::ShowFont);
    connect(button, &QPushButton::clicked, this, &PreferencesDialog::ChooseFontOfView);
    auto* row = new QHBoxLayout;
    row->addWidget(fontViews_);
    row->addWidget(fontSample_, 1);
    row->addWidget(button);
    layout.addLayout(row);
    ShowFont();
}

void PreferencesDialog::ShowFont() {
    const std::size_t entry = fontViews_->currentData().toULongLong();
    const Preferences& preferences = choice_.preferences;
    const QFont font = PreferenceFont(preferences, entry);
    fontSample_->setFont(font);
    fontSample_->setText(
        QStringLiteral("%1, %2").arg(font.family()).arg(preferences.FontSize[entry]));
}

void PreferencesDialog::ChooseFontOfView() {
    bool chosen = false;
    const QFont font = QFontDialog::getFont(&chosen, fontSample_->font(), this);
    if (!chosen) return;
    const std::size_t entry = fontViews_->currentData().toULongLong();
    ChooseFont(session_, choice_, entry,
               {font.family().toStdString(), font.pointSize(), font.bold(), font.italic()});
    ShowFont();
}

void PreferencesDialog::AddSpellChecker(QBoxLayout& page) {
    QBoxLayout& layout = Group(page, "ToolsSpellChecker", "Spell checker");
    struct Checker {
        const char* key;
        const char* caption;
    };
    constexpr Checker kCheckers[] = {{"PreferencesSpellCheckerWord", "Word"},
                                     {"PreferencesSpellCheckerCordial", "Cordial"},
                                     {"PreferencesSpellCheckerProLexis", "ProLexis"}};
    std::vector<QRadioButton*> options;
    for (std::int32_t type = 0; type < 3; ++type) {
        auto* option = new QRadioButton(
            ConfiguredCaption(session_, kCheckers[type].key, kCheckers[type].caption));
        option->setObjectName(QStringLiteral("optSpellChecker%1").arg(type));
        option->setChecked(choice_.preferences.CheckSpellingType == type);
        layout.addWidget(option);
        options.push_back(option);
    }
    QCheckBox* suggest = AddFlag(layout, "CheckSpellingAlwaysSuggest", "PreferencesAlwaysSuggest",
                                 "Always suggest", &Preferences::CheckSpellingAlwaysSuggest);
    QCheckBox* uppercase =
        AddFlag(layout, "CheckSpellingIgnoreUppercase", "PreferencesIgnoreUppercase",
                "Ignore words in uppercase", &Preferences::CheckSpellingIgnoreUppercase);
    const auto showOptions = [this, suggest, uppercase] {
        const bool apply = SpellingOptionsApply(choice_.preferences.CheckSpellingType);
        suggest->setEnabled(apply);
        uppercase->setEnabled(apply);
    };
    for (std::int32_t type = 0; type < 3; ++type) {
        connect(options[type], &QRadioButton::toggled, this, [this, type, showOptions](bool on) {
            if (!on) return;
            choice_.preferences.CheckSpellingType = type;
            showOptions();
        });
    }
    showOptions();
}

void PreferencesDialog::AddDailyInterval(QBoxLayout& layout) {
    auto* daily =
        new QRadioButton(ConfiguredCaption(session_, "PreferencesDailyInterval", "Daily interval"));
    auto* weekly = new QRadioButton(
        ConfiguredCaption(session_, "PreferencesWeeklyInterval", "Weekly interval"));
    daily->setObjectName(QStringLiteral("optDailyInterval"));
    weekly->setObjectName(QStringLiteral("optWeeklyInterval"));
    (choice_.preferences.DailyInterval == kWeeklyStep ? weekly : daily)->setChecked(true);
    connect(weekly, &QRadioButton::toggled, this,
            [this](bool on) { choice_.preferences.DailyInterval = on ? kWeeklyStep : kDailyStep; });
    layout.addWidget(daily);
    layout.addWidget(weekly);
}

void PreferencesDialog::AddRecentFiles(QBoxLayout& page) {
    QBoxLayout& layout = Group(page, "PreferencesRecentlyOpenedStories", "Recently opened stories");
    auto* keep = new QCheckBox(ConfiguredCaption(session_, "PreferencesKeepList", "Keep the list"));
    keep->setObjectName(QStringLiteral("chkUseMRU"));
    keep->setChecked(choice_.preferences.FileMRU.UseMRU);
    connect(keep, &QCheckBox::toggled, this,
            [this](bool checked) { choice_.preferences.FileMRU.UseMRU = checked; });
    auto* clear =
        new QPushButton(ConfiguredCaption(session_, "PreferencesClearList", "Clear the list"));
    clear->setObjectName(QStringLiteral("cmdClearMRU"));
    connect(clear, &QPushButton::clicked, this, [this, clear] {
        choice_.clearRecentFiles = true;
        clear->setEnabled(false);
    });
    layout.addWidget(keep);
    layout.addWidget(clear);
}

void PreferencesDialog::AddStyleSheet(QBoxLayout& page) {
    QBoxLayout& layout = Group(page, "PreferencesXSLTLabel", "XSL transformation");
    AddFlagOptions(layout, &Preferences::UseXSLT, "optAddXSLT", "PreferencesAddXSLT",
                   "Add the XSL transformation to stories", "optNotAddXSLT",
                   "PreferencesNotAddXSLT", "Do not add it");
    auto* browse = new QPushButton(QStringLiteral("..."));
    browse->setObjectName(QStringLiteral("cmdXSLT"));
    QLineEdit* entry =
        AddText(layout, "XSLT", "PreferencesXSLTLabel", "Style sheet", &Preferences::XSLT, browse);
    connect(browse, &QPushButton::clicked, this, [this, entry] {
        const auto sheet = session_.user.ChooseFileToOpen(
            ConfiguredCaption(session_, "PreferencesXSLTLabel", "XSL transformation").toStdString(),
            "XSLT (*.xsl)|*.xsl", session_.paths.xsltDir);
        if (sheet) entry->setText(QString::fromStdString(sheet->string()));
    });
}

}  // namespace tessarin
