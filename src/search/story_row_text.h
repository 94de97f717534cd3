#pragma once

#include <string>
#include <vector>

#include "search/story_row.h"

namespace tessarin {

// The row's columns in the list's order: file name; directory; creation date
// and time; last save date and time (each pair joined by a blank); last save author;
// characters; publication; classification; section; subsection; publication date; form;
// number of images.
std::vector<std::string> StoryRowColumns(const StoryRow& row);

// The columns, tab separated.
std::string StoryRowLine(const StoryRow& row);

}  // namespace tessarin
