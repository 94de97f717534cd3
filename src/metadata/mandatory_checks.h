#pragma once

#include <optional>
#include <string>

#include "app/window_state.h"
#include "config/configuration.h"
#include "story/story_record.h"

namespace tessarin {

// The first field that keeps a story from being saved or sent.
struct MandatoryFailure {
    std::string message;  // shown in the status panel and in a warning box
    std::string field;    // the control that holds the field, so that its tab can be shown
};

// The rules a story must meet before it is saved or sent, in this order, stopping at the
// first failure. A field is mandatory when its label's tag holds "mandatory".
//  1. Author, Email, Group, Initials: mandatory and empty gives the label, ": " and the
//     message MandatoryField.
//  2. Publication, Classification: the same.
//  3. The general sections (SectionGeneral, SubSectionGeneral) for a story classified in
//     general sections, else the local ones (SectionLocal, SubSectionLocal, CodeLocal1,
//     CodeLocal2): the same.
//  4. For each image, in order, when the caption or the credit is mandatory (Interface
//     ImageCaption / ImageCredit) and empty: the image's file name, " -> ", MandatoryField,
//     ": " and the field's label.
//  5. Each keyword category whose text holds "[*]" needs a keyword: the category's text,
//     ": ", MandatoryField.
//  6. A shown taxonomy whose tag holds "mandatory" needs a topic: the taxonomy's name, ": ",
//     MandatoryTaxonomy.
//  7. The story form, when mandatory, must be chosen: label, ": ", MandatoryField.
//  8. The publication date, unless its field is "invisible" or the story is cold: text that
//     is no date gives label, ": " and InvalidDateText (the message with the date form
//     expected); an empty mandatory one MandatoryField.
//  9. The event date, unless its field is "invisible": the same.
// 10. The publication number, unless its field is "invisible" or the story is cold: text
//     that is not numeric gives label, ": ", InvalidNumber; an empty mandatory one
//     MandatoryField.
std::optional<MandatoryFailure> CheckMandatoryFields(const StoryRecord& story,
                                                     const WindowState& window,
                                                     const Configuration& configuration);

}  // namespace tessarin
