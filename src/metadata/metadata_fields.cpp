#include "metadata/metadata_fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>

#include "common/clock.h"
#include "common/date_format.h"
#include "common/number_parse.h"
#include "config/preferences.h"
#include "config/text_trim.h"
#include "metadata/date_text.h"
#include "metadata/metadata_changed.h"

namespace tessarin {
namespace {

constexpr int kWeeklyInterval = 7;
constexpr std::string_view kMetadataLockedLabel = "lblMetadataLocked";

// The controls of the publication date and of the publication number, the value control
// first: a cold story has neither.
constexpr std::array<std::string_view, 5> kPublicationDateControls = {
    "txtPublicationDate", "lblPublicationDate", "udDate", "cmdDate", "MonthViewPublicationDate"};
constexpr std::array<std::string_view, 3> kPublicationNumberControls = {
    "txtPublicationNumber", "lblPublicationNumber", "udNumber"};

constexpr std::array<std::string_view, 15> kLockedControls = {"txtPublicationDate",
                                                              "udDate",
                                                              "cmdDate",
                                                              "txtEventDate",
                                                              "udEventDate",
                                                              "cmdEventDate",
                                                              "txtPublicationNumber",
                                                              "udNumber",
                                                              "cmdMetadata",
                                                              "lstStatus",
                                                              "lstGenre",
                                                              "lstStoryTypes",
                                                              "treeKeywords",
                                                              "treeTaxonomy",
                                                              "treePublications"};

std::string& DateText(StoryRecord& story, DateField field) {
    return field == DateField::Publication ? story.publicationDate : story.eventDate;
}

bool BeforeToday(const LocalDateTime& date) {
    const LocalDateTime today = Now();
    return std::tie(date.year, date.month, date.day) < std::tie(today.year, today.month, today.day);
}

template <std::size_t N>
bool Contains(const std::array<std::string_view, N>& controls, std::string_view control) {
    return std::find(controls.begin(), controls.end(), control) != controls.end();
}

// A number moved by a step, written as the shortest text that reads back as it ("13", "2.5").
std::string SteppedNumber(std::string_view text, int step) {
    const double value = ParseLeadingNumber(text) + step;
    std::array<char, 32> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return std::string(digits.data(), result.ptr);
}

// Disables (cold) or enables again a cold story's controls. A group whose value control or
// label is "invisible" is left alone when disabling; when enabling, the "invisible" controls
// and those the lock holds stay as they are. Returns false for a group left alone.
template <std::size_t N>
bool SwitchColdControls(WindowState& window, const std::array<std::string_view, N>& controls,
                        bool cold) {
    if (cold &&
        (TagHolds(window, controls[0], "invisible") || TagHolds(window, controls[1], "invisible")))
        return false;
    const bool locked = MetadataLocked(window);
    for (std::string_view control : controls) {
        if (!cold && (TagHolds(window, control, "invisible") ||
                      (locked && Contains(kLockedControls, control))))
            continue;
        window.Control(control).enabled = !cold;
    }
    return true;
}

}  // namespace

std::string TomorrowShortDate() {
    return FormatShortDate(AddDays(Now(), 1));
}

int DateStepDays(const Preferences& preferences) {
    return preferences.DailyInterval == kWeeklyInterval ? kWeeklyInterval : 1;
}

std::optional<int> CalendarMonth(std::string_view dateText) {
    const std::optional<LocalDateTime> date = ParseShortDate(dateText);
    if (!date) return std::nullopt;
    return date->month;
}

void TypeDate(EditorSession& session, DateField field, std::string text) {
    DateText(session.story, field) = std::move(text);
    MetadataValueChanged(session);
}

void TypePublicationNumber(EditorSession& session, std::string text) {
    session.story.publicationNumber = std::move(text);
    MetadataValueChanged(session);
}

DateCheck LeaveDateField(EditorSession& session, DateField field) {
    const std::string& text = DateText(session.story, field);
    if (TrimWhitespace(text).empty()) return DateCheck::Empty;
    const std::optional<LocalDateTime> date = ParseShortDate(text);
    if (!date) {
        session.window.ShowStatusError(InvalidDateText(session.configuration.messages));
        return DateCheck::Invalid;
    }
    if (field == DateField::Publication && BeforeToday(*date)) {
        session.window.ShowStatusError(session.Message("ExpiredDate"));
        return DateCheck::Expired;
    }
    return DateCheck::Valid;
}

DateCheck StepDate(EditorSession& session, DateField field, int direction) {
    session.window.ClearStatus();
    const std::optional<LocalDateTime> date = ParseShortDate(DateText(session.story, field));
    if (!date) {
        session.window.ShowStatusError(InvalidDateText(session.configuration.messages));
        return DateCheck::Invalid;
    }
    const LocalDateTime moved = AddDays(*date, direction * DateStepDays(session.preferences));
    TypeDate(session, field, FormatShortDate(moved));
    if (field == DateField::Publication && direction < 0 && BeforeToday(moved)) {
        session.window.ShowStatusError(session.Message("ExpiredDate"));
        return DateCheck::Expired;
    }
    return DateCheck::Valid;
}

bool LeavePublicationNumber(EditorSession& session) {
    const std::string& text = session.story.publicationNumber;
    if (TrimWhitespace(text).empty() || IsNumeric(text)) return true;
    session.window.ShowStatusError(session.Message("InvalidNumber"));
    return false;
}

bool StepPublicationNumber(EditorSession& session, int direction) {
    const std::string& text = session.story.publicationNumber;
    if (!IsNumeric(text)) {
        session.window.ShowStatusError(session.Message("InvalidNumber"));
        return false;
    }
    TypePublicationNumber(session, SteppedNumber(text, direction < 0 ? -1 : 1));
    return true;
}

void SetColdStory(EditorSession& session, bool cold) {
    WindowState& window = session.window;
    StoryRecord& story = session.story;
    window.Control("chkColdStory").checked = cold;
    story.coldStory = cold;
    if (SwitchColdControls(window, kPublicationDateControls, cold) && cold) {
        story.publicationDate.clear();
    }
    if (SwitchColdControls(window, kPublicationNumberControls, cold) && cold) {
        story.publicationNumber.clear();
    }
    if (!cold) story.publicationDate = TomorrowShortDate();
    MetadataValueChanged(session);
}

void ApplyMetadataLock(EditorSession& session, bool locked) {
    WindowState& window = session.window;
    for (std::string_view control : kLockedControls) {
        const bool heldByColdStory =
            session.story.coldStory && (Contains(kPublicationDateControls, control) ||
                                        Contains(kPublicationNumberControls, control));
        if (!locked && (TagHolds(window, control, "invisible") || heldByColdStory)) continue;
        window.Control(control).enabled = !locked;
    }
    window.Control(kMetadataLockedLabel).visible = locked;
}

bool MetadataLocked(const WindowState& window) {
    const ControlState* label = window.FindControl(kMetadataLockedLabel);
    return label && label->visible;
}

void SetMetadataLock(EditorSession& session, bool locked) {
    session.preferences.LockMetadata = locked;
    WriteLockMetadata(session.profile, locked);
    session.window.Control("mnuDisplayLockMetadata").checked = locked;
    ApplyMetadataLock(session, locked);
}

void PrepareNewStoryMetadata(EditorSession& session) {
    session.story.publicationDate = TomorrowShortDate();
    MetadataChanged(session);
}

}  // namespace tessarin
