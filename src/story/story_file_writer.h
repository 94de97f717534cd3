#pragma once

#include <string>
#include <string_view>

#include "common/clock.h"
#include "story/story_context.h"
#include "story/story_markup.h"
#include "story/story_record.h"

namespace tessarin {

// What the body of the story's file is made from: each text box with the caption of its
// label and its character count, the signature, and the markup preferences.
StoryBodyInput StoryBodyInputOf(const StoryRecord& story, const StoryContext& context);

// The whole story file, as bytes, for a story whose body (StoryTextToTags) is already built:
// the prolog in the encoding of StoriesEncoding, the comment with the file name (name and
// extension, each "--" written "__"), the style sheet line when UseXSLT is on and XSLT is
// set, the root, the metadata rows with their conditions, the logs, the body, the notes, the
// images and the other files. Labels are the captions of the fields' labels. now is the
// time of the save: the last-save date and time, and the creation date and time of a story
// that has none. LastSaveAuthor is the identity's author.
std::string ComposeStoryFile(const StoryRecord& story, const StoryContext& context,
                             std::string_view fileName, const LocalDateTime& now,
                             std::string_view body);

// The same, building the body from the story.
std::string ComposeStoryFile(const StoryRecord& story, const StoryContext& context,
                             std::string_view fileName, const LocalDateTime& now);

// The href of a linked file: "file://" and the file's absolute path, so "file:///home/...".
std::string LinkedFileReference(std::string_view path);

}  // namespace tessarin
