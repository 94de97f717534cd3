#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// The metadata fields the writer types in: the publication date, the event date and the
// publication number, their up-down controls, the cold-story switch, and the lock that keeps
// all metadata from being changed. Field errors go to
// the first status panel with the error picture and a beep; none of them refuses anything.
// Dates are in the user's short date form and are compared with today in whole days.

enum class DateField { Publication, Event };

// What a date field holds, as its checks judge it.
enum class DateCheck { Empty, Valid, Expired, Invalid };

// The publication date of a new story: tomorrow, in the short date form.
std::string TomorrowShortDate();

// The step of the date up-down controls: 7 days when DailyInterval is 7, else 1.
int DateStepDays(const Preferences& preferences);

// The month (1 to 12) that the calendar button of a date field shows for its text; nothing
// when the text is no date, and the button keeps its picture.
std::optional<int> CalendarMonth(std::string_view dateText);

// The writer typed into a field: the value is stored, the story is modified and the metadata
// tool tip refreshed.
void TypeDate(EditorSession& session, DateField field, std::string text);
void TypePublicationNumber(EditorSession& session, std::string text);

// Leaving a date field. Blank text is not tested. A date before today in the publication
// date shows ExpiredDate; text that is no date shows InvalidDateText. The text is never changed.
DateCheck LeaveDateField(EditorSession& session, DateField field);

// A click on a date's up-down control, direction +1 or -1. The status panel is cleared; text
// that is no date (blank included) shows InvalidDateText and stays. Otherwise the date moves by
// DateStepDays and is stored as after typing; a step down of the publication date that lands
// before today shows ExpiredDate, and the date is kept.
DateCheck StepDate(EditorSession& session, DateField field, int direction);

// Leaving the publication number: text that is not blank and not numeric shows InvalidNumber.
// Returns false then.
bool LeavePublicationNumber(EditorSession& session);

// A click on udNumber, direction +1 or -1: a numeric field moves by 1 and is stored as after
// typing; any other text (blank included) shows InvalidNumber and stays. Returns false then.
bool StepPublicationNumber(EditorSession& session, int direction);

// A click on chkColdStory. Checked: unless they are "invisible", the publication date's
// label, field, up-down, button and calendar are disabled and the date emptied, and the same
// for the publication number's label, field and up-down. Unchecked: those controls are
// enabled again, except the "invisible" ones and, while the metadata are locked, the ones the
// lock holds; the date is tomorrow again. Then the story is modified and the metadata tool tip
// refreshed.
void SetColdStory(EditorSession& session, bool cold);

// The metadata lock. Locked, these controls are disabled: the date and number fields with
// their up-down controls and calendar buttons (txtPublicationDate, udDate, cmdDate,
// txtEventDate, udEventDate, cmdEventDate, txtPublicationNumber, udNumber), the
// classification dialog's button cmdMetadata, lstStatus, lstGenre, lstStoryTypes,
// treeKeywords, treeTaxonomy and treePublications; lblMetadataLocked is shown. Unlocked, they
// are enabled again, except the "invisible" ones and, for a cold story, the publication date
// and number. The trees keep their highlight either way.
void ApplyMetadataLock(EditorSession& session, bool locked);

// True while lblMetadataLocked is shown.
bool MetadataLocked(const WindowState& window);

// The menu entry mnuDisplayLockMetadata: the preference LockMetadata is set and written at
// once, the entry checked as it says, and the lock applied.
void SetMetadataLock(EditorSession& session, bool locked);

// The metadata of a new story: the publication date is tomorrow and the metadata tool tip is
// built.
void PrepareNewStoryMetadata(EditorSession& session);

}  // namespace tessarin
