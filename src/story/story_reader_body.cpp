#include <string>
#include <string_view>

#include "common/utf8.h"
#include "common/xml_escape.h"
#include "config/story_section.h"
#include "story/char_count.h"
#include "story/story_reader_parts.h"

namespace tessarin {
namespace {

void ReadSignature(const XmlNode& body, StoryRecord& story) {
    const XmlNode signature = body.SelectSingleNode("Signature");
    if (!signature) {
        story.initialsSignature = false;
        story.signature.clear();
        story.signatureEnabled = false;
        return;
    }
    story.initialsSignature = signature.Attribute("Type") == "I";
    story.signatureEnabled = true;
    story.signature = XmlUnescape(signature.Text());
}

bool TitleStandsInABox(const std::string& title, const StoryRecord& story) {
    const std::u16string wanted = Utf8ToUtf16(title);
    for (const StyledText& box : story.boxes) {
        if (box.Find(wanted, 0, true, false) >= 0) return true;
    }
    return false;
}

std::string WithCrLfLineEnds(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '\n') result += '\r';
        result += c;
    }
    return result;
}

}  // namespace

MarkupSettings MarkupSettingsOf(const StoryContext& context) {
    MarkupSettings settings;
    settings.interColours = {context.preferences.InterColor1, context.preferences.InterColor2,
                             context.preferences.InterColor3};
    settings.bookmarksColour = context.preferences.BookmarksColor;
    settings.removeDuplicateSpaces = context.preferences.RemoveDuplicateSpaces;
    settings.utf8 = context.configuration.general.storiesEncoding == "UTF-8";
    return settings;
}

// The counters are recomputed from the text, as the copy-fit does for every box that the
// configuration has not made invisible.
void ReadStoryBody(const XmlNode& body, const StoryContext& context, StoryRecord& story) {
    const MarkupSettings settings = MarkupSettingsOf(context);
    for (int index = 0; index < kTextBoxCount; ++index) {
        const XmlNode element = body.SelectSingleNode("TextBox" + std::to_string(index));
        if (!element) continue;
        BoxText box = TagsToStoryText(index, element, settings,
                                      context.preferences.FontSize[static_cast<size_t>(index)]);
        story.boxes[index] = std::move(box.text);
        BoxCounters& counters = story.counters[index];
        counters.noteCharacters += box.noteCharacters;
        if (TagHolds(context.window, TextBoxControlName(index), "invisible")) continue;
        counters.count = CountBoxCharacters(story.boxes[index], counters.noteCharacters,
                                            counters.paragraphMarks);
    }
    ReadSignature(body, story);
}

// Both the title and the text are unescaped once more than the parser did; the text's
// line ends become CR LF.
void ReadStoryNotes(const XmlNode& root, const Configuration& configuration, StoryRecord& story) {
    const NotesSettings& settings = configuration.story.notes;
    if (!settings.visible) return;
    const Identity& user = configuration.identity;
    for (const XmlNode& element : root.SelectNodes("Notes/Note")) {
        const std::string name = element.Attribute("Name");
        if (name.empty()) continue;
        StoryNote note;
        note.title = XmlUnescape(name);
        note.text = XmlUnescape(WithCrLfLineEnds(element.Text()));
        note.bookmark =
            element.Attribute("Bookmark") == "true" && TitleStandsInABox(note.title, story);
        note.foreign = !settings.manageAllNotes && !note.title.starts_with(user.author) &&
                       !note.title.starts_with(user.initials);
        story.notes.push_back(std::move(note));
    }
}

}  // namespace tessarin
