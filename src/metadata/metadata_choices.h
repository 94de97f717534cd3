#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "common/clock.h"
#include "metadata/metadata_fields.h"
#include "session/editor_session.h"

namespace tessarin {

// The choices of the metadata tab that are neither typed nor clicked in a tree: the status
// and the genre, a day picked in a date's calendar, and the classification fields as the
// metadata dialog edits them.

// lstStatus and lstGenre: the writer chose the entry at index (-1: none). The story keeps the
// choice and the list shows it; a choice that differs from the one held modifies the story
// and refreshes the metadata tool tip. An index outside the vocabulary changes nothing.
// Returns true when the choice changed.
bool ChooseStatus(EditorSession& session, int index);
bool ChooseGenre(EditorSession& session, int index);

// The day a date's calendar opens on: the field's date, today when the field holds no date.
LocalDateTime CalendarStartDay(std::string_view dateText);

// A day clicked in a date's calendar (MonthViewPublicationDate, MonthViewEventDate): the
// field takes it in the short date form, as after typing, and is judged as on leaving the
// field, so that a publication date in the past is reported as expired.
DateCheck PickCalendarDay(EditorSession& session, DateField field, const LocalDateTime& day);

// The classification fields, in the order of the metadata tab. Each shows in the label
// "lbl" + name and the field "txt" + name.
inline constexpr std::size_t kClassificationFieldCount = 8;
struct ClassificationField {
    std::string_view name;
    std::string StoryRecord::*value;
};
std::span<const ClassificationField, kClassificationFieldCount> ClassificationFields();

using ClassificationValues = std::array<std::string, kClassificationFieldCount>;
ClassificationValues ReadClassification(const StoryRecord& story);

// The metadata dialog's OK: the story's classification fields take the values. When any of
// them changed, the story is modified and the metadata tool tip refreshed; returns true then.
bool ApplyClassification(EditorSession& session, const ClassificationValues& values);

}  // namespace tessarin
