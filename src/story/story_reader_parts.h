#pragma once

#include <filesystem>

#include "common/xml_document.h"
#include "story/story_context.h"
#include "story/story_markup.h"
#include "story/story_record.h"

namespace tessarin {

// The steps of ReadStory, each over its part of a parsed story file (story_file_reader.h
// says what each reads). root is the document element; a missing part reads as nothing.

// The markup settings of the user's preferences and the configured story encoding.
MarkupSettings MarkupSettingsOf(const StoryContext& context);

// The Metadata element: the values of its rows, Form, Status, Genre, the taxonomy topics
// and the keywords.
void ReadStoryMetadata(const XmlNode& metadata, const Configuration& configuration,
                       StoryRecord& story);

// Logs/Log, when the configuration keeps logs.
void ReadStoryLogs(const XmlNode& root, const Configuration& configuration, StoryRecord& story);

// Body: the seven boxes with their counters, and the signature.
void ReadStoryBody(const XmlNode& body, const StoryContext& context, StoryRecord& story);

// Notes/Note, when notes are in use; run after the boxes, whose text shows the bookmarks.
void ReadStoryNotes(const XmlNode& root, const Configuration& configuration, StoryRecord& story);

// Images/ImageBag and Files/FileBag; storyPath is named in the warning for a missing file.
void ReadStoryAttachments(const XmlNode& root, const std::filesystem::path& storyPath,
                          const StoryContext& context, StoryRecord& story);

}  // namespace tessarin
