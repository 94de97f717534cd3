#include "editing/questions_answers.h"

#include <vector>

#include "common/text_replace.h"
#include "common/utf8.h"
#include "config/profile_values.h"
#include "editing/copy_fit.h"
#include "editing/text_selection.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

std::string Key(std::string_view name, int role, int style = 0) {
    std::string key = "QA" + std::string(name) + std::to_string(role + 1);
    if (style > 0) key += std::to_string(style);
    return key;
}

std::string StoredLabel(std::string label) {
    ReplaceAllInText(label, "%", "%25");
    ReplaceAllInText(label, " ", "%20");
    return label;
}

std::string ReadLabel(std::string stored) {
    std::string label;
    for (std::size_t at = 0; at < stored.size(); ++at) {
        if (stored.compare(at, 3, "%20") == 0) {
            label += ' ';
            at += 2;
        } else if (stored.compare(at, 3, "%25") == 0) {
            label += '%';
            at += 2;
        } else {
            label += stored[at];
        }
    }
    return label;
}

QaAttributes ReadAttributes(const ProfileContents& profile, std::string_view prefix, int role) {
    QaAttributes attributes;
    const auto flag = [&](std::string_view name, int style = 0) {
        return ReadFlag(profile, kQaSection,
                        Key(std::string(prefix) + std::string(name), role, style), false);
    };
    attributes.bold = flag("Bold");
    attributes.italic = flag("Italic");
    attributes.underline = flag("Underline");
    for (int style = 3; style >= 1; --style) {
        if (flag("Inter", style)) attributes.inter = style;
    }
    return attributes;
}

void AddAttributes(std::vector<ProfileEntry>& entries, std::string_view prefix, int role,
                   const QaAttributes& attributes) {
    const auto add = [&](std::string_view name, bool value, int style = 0) {
        entries.push_back({std::string(kQaSection),
                           Key(std::string(prefix) + std::string(name), role, style),
                           FlagText(value)});
    };
    add("Bold", attributes.bold);
    add("Italic", attributes.italic);
    add("Underline", attributes.underline);
    for (int style = 1; style <= 3; ++style)
        add("Inter", attributes.inter == style, style);
}

}  // namespace

QaRoles ReadQaRoles(const ProfileFile& profile) {
    const ProfileContents contents = profile.Load();
    QaRoles roles;
    for (int role = 0; role < 2; ++role) {
        QaRole& read = roles[static_cast<std::size_t>(role)];
        read.label = ReadLabel(ReadText(contents, kQaSection, Key("Text", role), ""));
        read.labelAttributes = ReadAttributes(contents, "", role);
        read.newline = ReadFlag(contents, kQaSection, Key("Newline", role), false);
        read.following = ReadAttributes(contents, "Following", role);
    }
    return roles;
}

bool WriteQaRoles(ProfileFile& profile, const QaRoles& roles) {
    std::vector<ProfileEntry> entries;
    for (int role = 0; role < 2; ++role) {
        const QaRole& written = roles[static_cast<std::size_t>(role)];
        entries.push_back({std::string(kQaSection), Key("Text", role), StoredLabel(written.label)});
        AddAttributes(entries, "", role, written.labelAttributes);
        entries.push_back(
            {std::string(kQaSection), Key("Newline", role), FlagText(written.newline)});
        AddAttributes(entries, "Following", role, written.following);
    }
    return profile.Write(entries);
}

CharFormat QaFormat(const QaAttributes& attributes, const Preferences& preferences) {
    CharFormat format;
    format.bold = attributes.bold;
    format.italic = attributes.italic;
    format.underline = attributes.underline;
    const OleColour inters[] = {preferences.InterColor1, preferences.InterColor2,
                                preferences.InterColor3};
    if (attributes.inter >= 1 && attributes.inter <= 3) {
        format.bold = true;
        format.italic = format.underline = false;
        format.colour = inters[attributes.inter - 1];
    }
    return format;
}

namespace {

constexpr std::string_view kModeControls[] = {"QA", "mnuFormatQuestionsAnswers"};

void ShowMode(EditorSession& session, bool on) {
    for (std::string_view control : kModeControls)
        session.window.Control(control).checked = on;
}

}  // namespace

bool QuestionsAnswers::On(const EditorSession& session) const {
    const ControlState* button = session.window.FindControl("QA");
    return on_ && button != nullptr && button->checked;
}

std::size_t QuestionsAnswers::Start(EditorSession& session, const QaRoles& roles,
                                    std::size_t caret) {
    on_ = true;
    ShowMode(session, true);
    roles_ = roles;
    nextRole_ = 0;
    labelEnd_.reset();
    if (!session.story.boxes[kMainTextBox].Empty() || session.mainBoxLocked) return caret;
    caret = WriteRole(session, 0);
    RecordUndo(session, kMainTextBox);
    return caret;
}

void QuestionsAnswers::Stop(EditorSession& session) {
    ShowMode(session, false);
    on_ = false;
    nextRole_ = 0;
    labelEnd_.reset();
}

std::optional<std::size_t> QuestionsAnswers::Enter(EditorSession& session, int box,
                                                   std::size_t position, std::size_t replacedLength,
                                                   bool modifier) {
    if (!On(session) || box != kMainTextBox || modifier) return std::nullopt;
    const std::optional<std::size_t> caret =
        TypeText(session, box, position, u"\r\n", replacedLength);
    if (!caret) return std::nullopt;
    const std::size_t end = WriteRole(session, *caret);
    RecordUndo(session, box);
    return end;
}

std::size_t QuestionsAnswers::WriteRole(EditorSession& session, std::size_t caret) {
    const QaRole& role = roles_[static_cast<std::size_t>(nextRole_)];
    StyledText& text = session.story.boxes[kMainTextBox];
    std::u16string label = Utf8ToUtf16(role.label);
    if (role.newline) label += u"\r\n";
    CharFormat format = QaFormat(role.labelAttributes, session.preferences);
    const CharFormat around = TypingFormat(text, caret, 0);
    format.fontName = around.fontName;
    format.fontSize = around.fontSize;
    const BoxTextChange change = MeasureBoxEdit(text, caret, 0, label);
    text.Insert(caret, label, format);
    BoxTextChanged(session, kMainTextBox, change, ChangeOrigin::User);
    pending_ = role.following;
    labelEnd_ = caret + label.size();
    nextRole_ = 1 - nextRole_;
    return *labelEnd_;
}

void QuestionsAnswers::Typed(EditorSession& session, int box, std::size_t start,
                             std::size_t length) {
    if (!On(session) || box != kMainTextBox || labelEnd_ != start) return;
    labelEnd_.reset();
    const CharFormat format = QaFormat(pending_, session.preferences);
    session.story.boxes[kMainTextBox].ApplyFormat(start, length, [&format](CharFormat& typed) {
        typed.bold = format.bold;
        typed.italic = format.italic;
        typed.underline = format.underline;
        typed.colour = format.colour;
    });
}

}  // namespace tessarin
