#include "story/story_preview_text.h"

#include <string>
#include <vector>

#include "story/story_markup.h"

namespace tessarin {
namespace {

// Erases the protected stretches (note anchors), from the last to the first.
void EraseNotes(StyledText& text) {
    std::vector<FormatRun> notes;
    text.ForEachRun(0, text.Length(), [&](const FormatRun& run) {
        if (run.format.isProtected) notes.push_back(run);
    });
    for (auto note = notes.rbegin(); note != notes.rend(); ++note)
        text.Erase(note->start, note->length);
}

}  // namespace

StyledText StoryPreviewText(const XmlNode& root, const Preferences& preferences) {
    MarkupSettings settings;
    settings.interColours = {preferences.InterColor1, preferences.InterColor2,
                             preferences.InterColor3};
    settings.bookmarksColour = preferences.BookmarksColor;
    const XmlNode body = root.SelectSingleNode("Body");
    StyledText preview;
    for (int index = 0; index < kTextBoxCount; ++index) {
        const XmlNode element = body.SelectSingleNode("TextBox" + std::to_string(index));
        if (!element) continue;
        StyledText box = TagsToStoryText(index, element, settings,
                                         preferences.FontSize[static_cast<std::size_t>(index)])
                             .text;
        EraseNotes(box);
        box.Insert(box.Length(), u"\r\n", CharFormat{});
        preview.Insert(preview.Length(), box);
    }
    return preview;
}

}  // namespace tessarin
