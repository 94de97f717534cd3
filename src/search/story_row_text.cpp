#include "search/story_row_text.h"

namespace tessarin {

std::vector<std::string> StoryRowColumns(const StoryRow& row) {
    return {row.name,
            row.directory,
            row.creationDate + " " + row.creationTime,
            row.lastSaveDate + " " + row.lastSaveTime,
            row.lastSaveAuthor,
            std::to_string(row.characters),
            row.publication,
            row.classification,
            row.section,
            row.subSection,
            row.publicationDate,
            row.form,
            std::to_string(row.images)};
}

std::string StoryRowLine(const StoryRow& row) {
    std::string line;
    for (const std::string& column : StoryRowColumns(row)) {
        if (!line.empty()) line += '\t';
        line += column;
    }
    return line;
}

}  // namespace tessarin
