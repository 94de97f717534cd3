#include "news/news_copy.h"

#include "common/date_format.h"
#include "common/utf8.h"
#include "editing/box_change.h"
#include "editing/copy_fit.h"
#include "editing/notes_edit.h"
#include "editing/text_selection.h"
#include "editing/typography_rules.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

// The question of a copy: its key's text, the headline (when there is one) and NewsConfirm,
// one a line.
bool Confirmed(EditorSession& session, std::string_view key, std::string_view design,
               const std::string& headline) {
    const InterfaceSettings& captions = session.configuration.interface;
    std::string question = captions.CaptionOr(key, design) + "\n";
    if (!headline.empty()) question += headline + "\n";
    question += captions.CaptionOr("NewsConfirm", "Copy it ?");
    return session.user.Ask(question, false, MessageIcon::Question) == Answer::Yes;
}

bool NeverCopied(const std::string& status) {
    return status == "Withheld" || status == "Canceled";
}

// The box that takes news text, when the story can take text there.
StyledText* RecipientBox(EditorSession& session, int box) {
    TextSelection place{box, 0, 0};
    return box >= 0 && box < kTextBoxCount ? EditableBox(session, place) : nullptr;
}

bool NonEmptyStoryConfirmed(EditorSession& session, const std::string& headline) {
    const int box = session.configuration.newsServices.textRecipient;
    return session.story.boxes[static_cast<std::size_t>(box)].Empty() ||
           Confirmed(session, "NewsNonEmptyStory",
                     "The story's text box holds text already:", headline);
}

void LogCopy(const EditorSession& session, const std::filesystem::path& item, NewsMark range,
             const LocalDateTime& when) {
    // Errors are ignored: a store that cannot be written to still gives its text.
    AppendCopyLine(item, CopyLogLine(session.configuration.identity.author, FormatShortDate(when),
                                     FormatTimeHourMinute(when), range));
}

// Appends text in plain characters at the end of a box, as the story's own typing would.
void AppendPlain(EditorSession& session, int box, std::u16string_view text) {
    StyledText& target = session.story.boxes[static_cast<std::size_t>(box)];
    const BoxTextChange change = MeasureBoxEdit(target, target.Length(), 0, text);
    target.Insert(target.Length(), text, CharFormat{});
    CommitBoxChange(session, box, change);
}

// Steps shared by every copy: a bookmark at the end of the recipient box when notes are in
// use and wanted, the text after it, then typography over the box when wanted.
void PutIntoStory(EditorSession& session, std::u16string_view text, const LocalDateTime& when) {
    const int box = session.configuration.newsServices.textRecipient;
    if (session.configuration.story.notes.visible && session.preferences.NewsBookmark) {
        const std::size_t end = session.story.boxes[static_cast<std::size_t>(box)].Length();
        AddNote(session, TextSelection{box, end, 0}, when);
    }
    AppendPlain(session, box, text);
    if (!session.preferences.NewsAutoTypography) return;
    StyledText& target = session.story.boxes[static_cast<std::size_t>(box)];
    StyledText result = target;
    if (!ApplyTypography(result, TypographySwitchesOf(session.preferences))) return;
    target = std::move(result);
    RecountBox(session, box, ChangeOrigin::User);
    RecordUndo(session, box);
}

NewsCopyResult Copy(EditorSession& session, const NewsCopySource& source, std::size_t start,
                    std::size_t length, bool copyHeadline, const LocalDateTime& when) {
    if (length == 0 || start >= source.text.size() ||
        RecipientBox(session, session.configuration.newsServices.textRecipient) == nullptr) {
        return {};
    }
    length = std::min(length, source.text.size() - start);
    if (NeverCopied(source.status)) return {NewsCopyOutcome::Withheld, source.state};
    const auto declined = NewsCopyResult{NewsCopyOutcome::Declined, source.state};
    if (source.status == "Embargoed" &&
        !Confirmed(session, "NewsEmbargoedVerify", "This item is under embargo:", source.headline))
        return declined;
    if (source.state != NewsCopyState::NotCopied &&
        !Confirmed(session, "NewsAlreadyCopied",
                   "This item has been copied already:", source.headline))
        return declined;
    if (!NonEmptyStoryConfirmed(session, source.headline)) return declined;

    LogCopy(session, source.item, {start, length}, when);
    const bool whole = start == 0 && length == source.text.size();
    const int headlineBox = session.configuration.newsServices.headLineRecipient;
    if (copyHeadline && !source.headline.empty() && RecipientBox(session, headlineBox) != nullptr)
        AppendPlain(session, headlineBox, Utf8ToUtf16(source.headline));
    PutIntoStory(session, std::u16string_view(source.text).substr(start, length), when);
    return {NewsCopyOutcome::Copied, whole ? NewsCopyState::Copied : NewsCopyState::CopiedInPart};
}

}  // namespace

NewsCopyResult CopyNewsSelection(EditorSession& session, const NewsCopySource& source,
                                 std::size_t start, std::size_t length, const LocalDateTime& when) {
    return Copy(session, source, start, length, false, when);
}

NewsCopyResult CopyWholeNewsItem(EditorSession& session, const NewsCopySource& source,
                                 bool copyHeadline, const LocalDateTime& when) {
    return Copy(session, source, 0, source.text.size(), copyHeadline, when);
}

bool CopySortedNewsItems(EditorSession& session, const std::vector<NewsCopySource>& items,
                         const LocalDateTime& when) {
    if (RecipientBox(session, session.configuration.newsServices.textRecipient) == nullptr)
        return false;
    std::u16string buffer;
    std::vector<const NewsCopySource*> taken;
    for (const NewsCopySource& item : items) {
        if (NeverCopied(item.status) || item.text.empty()) continue;
        buffer += item.text + u"\r\n";
        taken.push_back(&item);
    }
    if (taken.empty() || !NonEmptyStoryConfirmed(session, {})) return false;
    for (const NewsCopySource* item : taken)
        LogCopy(session, item->item, {0, item->text.size()}, when);
    PutIntoStory(session, buffer, when);
    return true;
}

}  // namespace tessarin
