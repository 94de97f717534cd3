#pragma once

#include <string>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// The story's keywords in treeKeywords. The tree holds the root "K" and the categories "K"
// and index (see keywords_taxonomy_section.h); the story record holds the keywords. Under each
// category the tree shows that category's keywords, bold and expanded, keyed by the
// category's key, "/" and their running number ("K3/1", "K3/2") and tagged with the
// category's index, then the entry line: the text NewKeyword, bold, keyed by the category's
// key and "/new", with an empty tag. Editing the entry line's text adds a keyword.

inline constexpr std::string_view kKeywordsTree = "treeKeywords";

// The key of the entry line under the category of categoryKey.
std::string KeywordEntryKey(std::string_view categoryKey);

// Rebuilds the nodes under every category from the story's keywords, with the entry lines:
// after a story is read or reset, and after every change below.
void ShowStoryKeywords(EditorSession& session);

// What an edit of the keywords asks the tree to select: the entry line of the category, which
// stays selected whether the keyword was added or refused. Empty when there is no category.
struct KeywordEdit {
    bool changed = false;
    std::string selectKey;
};

// The end of an edit on the entry line (or AddKeyword on a node) of key, with the text typed.
// The category is the node itself when it is a category, else the category above it; the
// root takes no keyword. The text is trimmed. The unchanged NewKeyword text adds nothing and
// says nothing. An empty text shows InvalidKeyword; a text that the category already holds,
// with the same case, shows the text, ": " and KeywordAlreadyPresent (both in the first status
// panel, with the error picture and a beep). Otherwise the keyword is added at the end of its
// category, the tree is rebuilt, the story is modified and the metadata tool tip refreshed.
KeywordEdit AddKeyword(EditorSession& session, std::string_view key, std::string_view text);

// Removes the keyword of the node of key, with the same follow-up. The entry line, the
// categories and the root cannot be removed: nothing changes for them.
KeywordEdit RemoveKeyword(EditorSession& session, std::string_view key);

}  // namespace tessarin
