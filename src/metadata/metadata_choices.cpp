#include "metadata/metadata_choices.h"

#include <optional>

#include "common/date_format.h"
#include "metadata/date_text.h"
#include "metadata/metadata_changed.h"

namespace tessarin {
namespace {

constexpr std::array<ClassificationField, kClassificationFieldCount> kClassificationFields{{
    {"Publication", &StoryRecord::publication},
    {"Classification", &StoryRecord::classification},
    {"SectionGeneral", &StoryRecord::sectionGeneral},
    {"SubSectionGeneral", &StoryRecord::subSectionGeneral},
    {"SectionLocal", &StoryRecord::sectionLocal},
    {"SubSectionLocal", &StoryRecord::subSectionLocal},
    {"CodeLocal1", &StoryRecord::codeLocal1},
    {"CodeLocal2", &StoryRecord::codeLocal2},
}};

bool Choose(EditorSession& session, const Vocabulary& vocabulary, std::string_view listName,
            int& chosen, int index) {
    if (index < -1 || index >= static_cast<int>(vocabulary.entries.size())) return false;
    session.window.List(listName).selected = index;
    if (chosen == index) return false;
    chosen = index;
    MetadataValueChanged(session);
    return true;
}

}  // namespace

bool ChooseStatus(EditorSession& session, int index) {
    return Choose(session, session.configuration.status, "lstStatus", session.story.statusIndex,
                  index);
}

bool ChooseGenre(EditorSession& session, int index) {
    return Choose(session, session.configuration.genre, "lstGenre", session.story.genreIndex,
                  index);
}

LocalDateTime CalendarStartDay(std::string_view dateText) {
    const std::optional<LocalDateTime> date = ParseShortDate(dateText);
    return date ? *date : Now();
}

DateCheck PickCalendarDay(EditorSession& session, DateField field, const LocalDateTime& day) {
    TypeDate(session, field, FormatShortDate(day));
    return LeaveDateField(session, field);
}

std::span<const ClassificationField, kClassificationFieldCount> ClassificationFields() {
    return kClassificationFields;
}

ClassificationValues ReadClassification(const StoryRecord& story) {
    ClassificationValues values;
    for (std::size_t index = 0; index < kClassificationFieldCount; ++index)
        values[index] = story.*kClassificationFields[index].value;
    return values;
}

bool ApplyClassification(EditorSession& session, const ClassificationValues& values) {
    if (ReadClassification(session.story) == values) return false;
    for (std::size_t index = 0; index < kClassificationFieldCount; ++index)
        session.story.*kClassificationFields[index].value = values[index];
    MetadataValueChanged(session);
    return true;
}

}  // namespace tessarin
