// The story panel: its controls and how they show the session.

#include "ui/story_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>

#include "config/numbered_name.h"
#include "config/story_section.h"
#include "editing/copy_fit.h"
#include "editing/multiple_clipboard.h"
#include "editing/signature.h"
#include "editing/story_display_aids.h"
#include "ui/clipboard_tree.h"
#include "ui/configured_caption.h"
#include "ui/notes_tree.h"
#include "ui/preference_font.h"
#include "ui/search_dialog.h"
#include "ui/story_text_box.h"
#include "ui/styled_text_bridge.h"
#include "ui/tool_tip_text.h"

namespace tessarin {
namespace {

constexpr int kShortBoxHeight = 64;
constexpr int kFormListWidth = 170;
constexpr int kIconSize = 16;
// The enlarged text of the Zoom button, as a factor of the box's own size.
constexpr double kZoomFactor = 2.0;
constexpr const char* kAllCapsMark = "ABC";
constexpr const char* kNameSignatureCaption = "Signature";
constexpr const char* kInitialsSignatureCaption = "Initials";

QString ToQString(const std::string& text) {
    return QString::fromStdString(text);
}

// A control's state: as designed (visible, enabled) until the core has set it.
bool Visible(const WindowState& window, std::string_view name, bool designed) {
    const ControlState* control = window.FindControl(name);
    return control ? control->visible : designed;
}

bool Enabled(const WindowState& window, std::string_view name) {
    const ControlState* control = window.FindControl(name);
    return !control || control->enabled;
}

void SetTextColour(QLabel& label, OleColour colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, ToQColor(colour));
    label.setPalette(palette);
}

}  // namespace

StoryPanel::StoryPanel(EditorSession& session, QWidget* parent) : SessionView(session, parent) {
    setObjectName(QStringLiteral("StoryPanel"));
    BuildLayout();
    Refresh();
}

StoryPanel::~StoryPanel() = default;

void StoryPanel::BuildLayout() {
    auto* columns = new QHBoxLayout(this);
    columns->addWidget(BuildFormList());
    // The boxes and the notes and clipboard trees share the rest, split by a bar.
    auto* split = new QSplitter(Qt::Horizontal, this);
    split->setObjectName(QStringLiteral("SizeBarVText"));
    split->setChildrenCollapsible(false);
    columns->addWidget(split, 1);
    auto* boxesColumn = new QWidget(split);
    auto* boxes = new QVBoxLayout(boxesColumn);
    boxes->setContentsMargins(0, 0, 0, 0);
    for (int box = 0; box < kTextBoxCount; ++box)
        boxes->addWidget(BuildBox(box), box == kMainTextBox ? 1 : 0);
    boxes->addWidget(BuildSignature());
    NotesTree::Panel panel;
    panel.selection = [this]() -> std::optional<TextSelection> {
        if (session_.activeBox < 0 || session_.activeBox >= kTextBoxCount) return std::nullopt;
        return SelectionOf(session_.activeBox);
    };
    panel.reveal = [this](const TextSelection& selection) { Reveal(selection); };
    panel.changed = [this] {
        ShowAllBoxes();
        Changed();
    };
    auto* treesColumn = new QWidget(split);
    notes_ = new NotesTree(session_, std::move(panel), treesColumn);
    notes_->setMinimumWidth(kFormListWidth);
    snippets_ = new ClipboardTree(session_, SnippetPanel(), treesColumn);
    snippets_->setMinimumWidth(kFormListWidth);
    auto* trees = new QVBoxLayout(treesColumn);
    trees->setContentsMargins(0, 0, 0, 0);
    trees->addWidget(notes_);
    trees->addWidget(snippets_);
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 0);
    // As designed, the trees take the form list's width and the boxes the rest.
    split->setSizes({kFormListWidth, kFormListWidth});
    for (int key = 0; key < kShortcutEntries; ++key) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | (Qt::Key_F1 + key)), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, key] {
            burst_.End(session_);
            snippets_->Insert(static_cast<std::size_t>(key) + 1);
        });
    }
}

ClipboardTree::Panel StoryPanel::SnippetPanel() {
    ClipboardTree::Panel panel;
    panel.selection = [this] {
        const int box = session_.activeBox;
        return box >= 0 && box < kTextBoxCount ? SelectionOf(box) : TextSelection{};
    };
    panel.inserted = [this](TextSelection selection) {
        ShowBox(selection.box);
        ShowTotal();
        Select(selection);
        Changed();
    };
    return panel;
}

QLabel* StoryPanel::NewLabel(const std::string& name) {
    auto* label = new QLabel(this);
    label->setObjectName(ToQString(name));
    return label;
}

void StoryPanel::OnClick(QObject* control, std::function<void()> action) {
    control->installEventFilter(this);
    clicks_[control] = std::move(action);
}

void StoryPanel::OnHover(QObject* control, std::function<void()> action) {
    control->installEventFilter(this);
    hovers_[control] = std::move(action);
}

bool StoryPanel::eventFilter(QObject* watched, QEvent* event) {
    const auto* actions = event->type() == QEvent::MouseButtonRelease ? &clicks_
                          : event->type() == QEvent::Enter            ? &hovers_
                                                                      : nullptr;
    if (actions != nullptr) {
        const auto found = actions->find(watched);
        if (found != actions->end()) found->second();
    }
    return SessionView::eventFilter(watched, event);
}

QWidget* StoryPanel::BuildFormList() {
    auto* column = new QWidget(this);
    column->setFixedWidth(kFormListWidth);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    formsLabel_ = NewLabel("lblStoryTypes");
    forms_ = new QListWidget(column);
    forms_->setObjectName(QStringLiteral("lstStoryTypes"));
    layout->addWidget(formsLabel_);
    layout->addWidget(forms_, 1);
    // The list makes the clicked row current before it selects it: the choice is taken once
    // the click is done, so that a refusal can put the selection back on the form in force.
    connect(forms_, &QListWidget::currentRowChanged, this, &StoryPanel::FormClicked,
            Qt::QueuedConnection);
    return column;
}

QWidget* StoryPanel::BuildBox(int box) {
    BoxWidgets& widgets = boxes_[static_cast<std::size_t>(box)];
    widgets.row = new QWidget(this);
    auto* header = new QHBoxLayout;
    if (box < kAllCapsBoxCount) {
        widgets.allCaps = NewLabel(NumberedName("ImageAllCaps", box));
        widgets.allCaps->setText(QLatin1String(kAllCapsMark));
        header->addWidget(widgets.allCaps);
    }
    widgets.label = NewLabel(TextBoxLabelName(box));
    widgets.limits = NewLabel(LimitsLabelName(box));
    widgets.count = NewLabel(CountLabelName(box));
    widgets.writeLess = NewLabel(WriteLessIconName(box));
    widgets.writeMore = NewLabel(WriteMoreIconName(box));
    widgets.writeLess->setPixmap(style()->standardIcon(QStyle::SP_ArrowDown).pixmap(kIconSize));
    widgets.writeMore->setPixmap(style()->standardIcon(QStyle::SP_ArrowUp).pixmap(kIconSize));
    header->addWidget(widgets.label);
    header->addStretch(1);
    for (QLabel* label : {widgets.limits, widgets.count, widgets.writeLess, widgets.writeMore})
        header->addWidget(label);

    widgets.edit = new StoryTextBox(box, widgets.row);
    widgets.edit->setObjectName(ToQString(TextBoxControlName(box)));
    if (box != kMainTextBox) widgets.edit->setFixedHeight(kShortBoxHeight);
    widgets.bridge = std::make_unique<StyledTextBridge>(*widgets.edit->document());
    auto* layout = new QVBoxLayout(widgets.row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(header);
    layout->addWidget(widgets.edit, 1);

    StoryTextBox* edit = widgets.edit;
    connect(
        edit, &StoryTextBox::editRequested, this,
        [this, box](int start, int end, const QString& text) { TypeInto(box, start, end, text); });
    connect(edit, &StoryTextBox::pasteRequested, this,
            [this, box](const QString& text) { PasteInto(box, text); });
    connect(edit, &StoryTextBox::cutRequested, this, &StoryPanel::Cut);
    connect(edit, &StoryTextBox::copyRequested, this, &StoryPanel::Copy);
    connect(edit, &StoryTextBox::undoRequested, this, &StoryPanel::Undo);
    connect(edit, &StoryTextBox::redoRequested, this, &StoryPanel::Redo);
    connect(edit, &StoryTextBox::focused, this, [this, box] { FocusBox(box); });
    connect(edit, &StoryTextBox::altGrPressed, this, [this] { altGr_.AltGrPressed(); });
    connect(edit, &StoryTextBox::cursorPositionChanged, this, [this, box] { SelectionMoved(box); });
    connect(edit, &StoryTextBox::selectionChanged, this, [this, box] { SelectionMoved(box); });
    connect(edit, &StoryTextBox::contextMenuRequested, this,
            [this, box](const QPoint& where) { ShowContextMenu(box, where); });
    connect(edit->document(), &QTextDocument::contentsChanged, this,
            [this, box] { DocumentChanged(box); });

    OnClick(widgets.count, [this, box] {
        ToggleBoxWords(session_, box);
        ShowBoxControls(box);
        Changed();
    });
    if (box == kMainTextBox) {
        OnClick(widgets.limits, [this] {
            ShowImageAllowanceParts(session_);
            Changed();
        });
    }
    for (QLabel* icon : {widgets.writeLess, widgets.writeMore}) {
        OnHover(icon, [this, box] {
            ShowBoxWarning(session_, box);
            Changed();
        });
    }
    return widgets.row;
}

QWidget* StoryPanel::BuildSignature() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int button = 0; button < 2; ++button) {
        auto* signatureButton = new QPushButton(row);
        signatureButton->setObjectName(ToQString(NumberedName("cmdSignature", button)));
        signatureButton->setCheckable(true);
        connect(signatureButton, &QPushButton::clicked, this, [this, button] {
            PressSignatureButton(session_, button);
            ShowSignature();
            Changed();
        });
        signatureButtons_[static_cast<std::size_t>(button)] = signatureButton;
        layout->addWidget(signatureButton);
    }
    signature_ = new QLineEdit(row);
    signature_->setObjectName(QStringLiteral("txtSignature"));
    connect(signature_, &QLineEdit::textEdited, this, [this](const QString& text) {
        TypeSignature(session_, text.toStdString());
        Changed();
    });
    layout->addWidget(signature_, 1);
    total_ = NewLabel(std::string(kTotalCountLabel));
    layout->addWidget(total_);
    OnClick(total_, [this] {
        ToggleTotalWords(session_);
        ShowTotal();
        Changed();
    });
    return row;
}

void StoryPanel::Refresh() {
    ShowForms();
    ShowAllBoxes();
    ShowSignature();
    notes_->Refresh();
    snippets_->Refresh();
}

void StoryPanel::ShowAllBoxes() {
    for (int box = 0; box < kTextBoxCount; ++box)
        ShowBox(box);
    ShowTotal();
}

void StoryPanel::ShowForms() {
    const WindowState& window = session_.window;
    const QSignalBlocker blocker(forms_);
    const ListModel* list = window.FindList("lstStoryTypes");
    const std::size_t items = list ? list->items.size() : 0;
    bool same = static_cast<std::size_t>(forms_->count()) == items;
    for (std::size_t row = 0; same && row < items; ++row) {
        same = forms_->item(static_cast<int>(row))->text() == ToQString(list->items[row].text);
    }
    if (!same) {
        forms_->clear();
        for (std::size_t row = 0; row < items; ++row)
            forms_->addItem(ToQString(list->items[row].text));
    }
    forms_->setCurrentRow(list ? list->selected : -1);
    forms_->setVisible(Visible(window, "lstStoryTypes", true));
    forms_->setEnabled(Enabled(window, "lstStoryTypes"));
    formsLabel_->setText(ControlCaption(window, "lblStoryTypes", ""));
    formsLabel_->setVisible(Visible(window, "lblStoryTypes", true));
}

void StoryPanel::ShowBox(int box) {
    BoxWidgets& widgets = boxes_[static_cast<std::size_t>(box)];
    QTextDocument& document = *widgets.edit->document();
    QFont font = PreferenceFont(session_.preferences, static_cast<std::size_t>(box));
    if (StoryTextZoomed(session_.window)) font.setPointSizeF(font.pointSizeF() * kZoomFactor);
    if (document.defaultFont() != font) document.setDefaultFont(font);
    QTextOption option = document.defaultTextOption();
    option.setFlags(ParagraphMarksShown(session_.window)
                        ? option.flags() | QTextOption::ShowLineAndParagraphSeparators
                        : option.flags() & ~QTextOption::ShowLineAndParagraphSeparators);
    if (option.flags() != document.defaultTextOption().flags()) {
        document.setDefaultTextOption(option);
    }
    widgets.bridge->Show(session_.story.boxes[static_cast<std::size_t>(box)]);
    ShowBoxControls(box);
}

void StoryPanel::ShowBoxControls(int box) {
    const WindowState& window = session_.window;
    BoxWidgets& widgets = boxes_[static_cast<std::size_t>(box)];
    widgets.row->setVisible(Visible(window, TextBoxControlName(box), true));
    widgets.edit->setEnabled(Enabled(window, TextBoxControlName(box)));
    // The box being searched shows in the colour of an active field and is locked until the
    // search leaves it.
    const bool searched = search_ != nullptr && search_->SearchedBox() == box;
    widgets.edit->setReadOnly((box == kMainTextBox && session_.mainBoxLocked) || searched);
    QPalette palette;
    if (searched) {
        palette = widgets.edit->palette();
        palette.setColor(QPalette::Base, ToQColor(session_.preferences.ColorInformations));
    }
    widgets.edit->setPalette(palette);
    // Tab types a tab only when the preference says so; otherwise it moves to the next box.
    widgets.edit->setTabChangesFocus(!session_.preferences.TabInText);
    widgets.label->setText(ControlCaption(window, TextBoxLabelName(box), ""));
    SetTextColour(*widgets.label, BoxLabelColour(session_, box));
    widgets.count->setText(ControlCaption(window, CountLabelName(box), ""));
    const ControlState* count = window.FindControl(CountLabelName(box));
    widgets.count->setToolTip(count ? ToolTipText(count->toolTip) : QString());
    widgets.count->setVisible(Visible(window, CountLabelName(box), true));
    widgets.limits->setText(ControlCaption(window, LimitsLabelName(box), ""));
    widgets.limits->setVisible(Visible(window, LimitsLabelName(box), false));
    widgets.writeLess->setVisible(Visible(window, WriteLessIconName(box), false));
    widgets.writeMore->setVisible(Visible(window, WriteMoreIconName(box), false));
    if (widgets.allCaps != nullptr) {
        widgets.allCaps->setVisible(Visible(window, NumberedName("ImageAllCaps", box), false));
    }
}

void StoryPanel::ShowSignature() {
    const WindowState& window = session_.window;
    const StoryRecord& story = session_.story;
    const QString text = ToQString(story.signature);
    if (signature_->text() != text) signature_->setText(text);
    signature_->setVisible(Visible(window, "txtSignature", true));
    signature_->setEnabled(story.signatureEnabled);
    const ControlState* buttons = window.FindControl("cmdSignature");
    for (int button = 0; button < 2; ++button) {
        QPushButton& signatureButton = *signatureButtons_[static_cast<std::size_t>(button)];
        const bool configured =
            button == kNameSignatureButton && buttons != nullptr && !buttons->caption.empty();
        signatureButton.setText(configured ? ToQString(buttons->caption)
                                : button == kNameSignatureButton
                                    ? QLatin1String(kNameSignatureCaption)
                                    : QLatin1String(kInitialsSignatureCaption));
        signatureButton.setToolTip(buttons ? ToolTipText(buttons->toolTip) : QString());
        signatureButton.setVisible(!buttons || buttons->visible);
        signatureButton.setEnabled(!buttons || buttons->enabled);
        signatureButton.setChecked(SignatureButtonPressed(story, button));
    }
}

void StoryPanel::ShowTotal() {
    total_->setText(ControlCaption(session_.window, kTotalCountLabel, ""));
}

}  // namespace tessarin
