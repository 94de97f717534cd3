#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// What the tracking tree knows of one tracking copy of a story.
struct TrackedStory {
    std::string publication;
    std::string classification;
    std::string section;     // SectionGeneral, else SectionLocal
    std::string subsection;  // SubSectionGeneral, else SubSectionLocal
    std::string form;
    std::string author;
    std::string lastSaveAuthor;
    int dateNumber = 0;     // the publication date as yyyymmdd; 0 for none (dated "0")
    std::string longDate;   // the publication date in the long form
    std::string dateLabel;  // the Name of PublicationDate, shown for a story without date
    std::string title;      // the text of the title box, on one line
    std::string text;       // the plain text of the seven boxes, each ended by a line break,
                            // when it was asked for (the search needs it)
    bool layout = false;    // the last log's Type is "L"
    std::vector<std::string> images;  // bare names
    std::vector<std::string> files;
};

// Reads a tracking copy from its bytes; nothing when they do not load as XML. titleBox is
// the number of the box that holds the title (the story model's headline box). The plain
// text is made only withText.
std::optional<TrackedStory> ReadTrackedStory(std::string_view bytes, int titleBox, bool withText);

}  // namespace tessarin
