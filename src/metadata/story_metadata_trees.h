#pragma once

#include "session/editor_session.h"

namespace tessarin {

// Keeps the keyword and taxonomy trees showing the open story, whatever put it there (the
// start, a new story, a story read): under each keyword category the story's keywords and the
// entry line, and in the taxonomy the checks of the story's topics. A tree that already shows
// the story is left alone, so that a search's highlight and the writer's open nodes stay.
void ShowStoryMetadataTrees(EditorSession& session);

}  // namespace tessarin
