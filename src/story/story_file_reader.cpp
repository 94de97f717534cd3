#include "story/story_file_reader.h"

#include <algorithm>
#include <array>
#include <string>
#include <system_error>

#include "common/file_io.h"
#include "common/xml_document.h"
#include "config/story_section.h"
#include "story/char_count.h"
#include "story/story_reader_parts.h"
#include "story/story_simple_text.h"

namespace tessarin {
namespace {

constexpr std::string_view kAppName = "Tessarin";

bool StoryFileIsThere(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

std::string ForeignStoryReport(const std::filesystem::path& path, const MessageTexts& messages) {
    return messages.Message("InvalidStory") + ":\n" + path.string() + "\n";
}

std::u16string FileText(const std::filesystem::path& path) {
    return DecodeStoryFileText(ReadFileBytes(path).value_or(""));
}

// The rescue is offered only for a file that holds text: a file of binary bytes, or an empty
// one, is only told.
StoryReadOutcome OfferSimpleText(const std::string& report, const std::filesystem::path& path,
                                 const StoryContext& context, StoryRecord& story) {
    if (!HoldsRescuableText(FileText(path))) {
        context.user.Tell(report, MessageIcon::Exclamation);
        return StoryReadOutcome::NotRead;
    }
    const std::string question =
        report + "\n" + context.configuration.messages.Message("ReadAsSimpleText");
    if (context.user.Ask(question, false, MessageIcon::Question) != Answer::Yes) {
        return StoryReadOutcome::NotRead;
    }
    return ReadStoryAsSimpleText(path, context, story);
}

void ReadStoryParts(const XmlNode& root, const std::filesystem::path& path,
                    const StoryContext& context, StoryRecord& story) {
    ReadStoryMetadata(root.SelectSingleNode("Metadata"), context.configuration, story);
    ReadStoryLogs(root, context.configuration, story);
    ReadStoryBody(root.SelectSingleNode("Body"), context, story);
    ReadStoryNotes(root, context.configuration, story);
    ReadStoryAttachments(root, path, context, story);
}

std::array<std::int32_t, kTextBoxCount> BoxFontSizes(const Preferences& preferences) {
    std::array<std::int32_t, kTextBoxCount> sizes{};
    std::copy_n(preferences.FontSize.begin(), kTextBoxCount, sizes.begin());
    return sizes;
}

}  // namespace

std::string StoryParseErrorReport(const std::filesystem::path& path, const XmlParseError& error) {
    return "Parsing error: \n" + path.string() + "\nline: " + std::to_string(error.line) +
           ", pos: " + std::to_string(error.linePosition) + "\n" + error.sourceText + "\n" +
           error.reason;
}

void ResetStory(StoryRecord& story, const Configuration& configuration) {
    StoryRecord reset;
    const Identity& user = configuration.identity;
    reset.author = user.author;
    reset.email = user.email;
    reset.group = user.group;
    reset.initials = user.initials;
    reset.formIndex = story.formIndex;
    reset.statusIndex = configuration.status.defaultIndex;
    reset.genreIndex = configuration.genre.defaultIndex;
    reset.usesLocalSections = !configuration.publications.classifiedGeneral;
    reset.signatureEnabled = false;
    story = std::move(reset);
}

StoryReadOutcome ReadStory(const std::filesystem::path& path, const StoryContext& context,
                           StoryRecord& story) {
    const MessageTexts& messages = context.configuration.messages;
    if (!StoryFileIsThere(path)) {
        context.user.Beep();
        context.user.Tell(messages.Message("UnknownStory") + ":\n" + path.string(),
                          MessageIcon::Exclamation);
        return StoryReadOutcome::NotRead;
    }
    ResetStory(story, context.configuration);

    XmlDocument document;
    if (!document.LoadFile(path)) {
        const XmlParseError error = document.ParseError().value_or(XmlParseError{});
        return OfferSimpleText(StoryParseErrorReport(path, error), path, context, story);
    }
    const XmlNode root = document.DocumentElement();
    if (root.Attribute("AppName") != kAppName) {
        context.user.Beep();
        return OfferSimpleText(ForeignStoryReport(path, messages), path, context, story);
    }
    ReadStoryParts(root, path, context, story);
    return StoryReadOutcome::Read;
}

StoryReadOutcome ReadStoryAsSimpleText(const std::filesystem::path& path,
                                       const StoryContext& context, StoryRecord& story) {
    const std::u16string text = FileText(path);
    std::optional<RescuedBoxes> boxes;
    if (HoldsRescuableText(text)) {
        boxes =
            RescueStoryBoxes(text, MarkupSettingsOf(context), BoxFontSizes(context.preferences));
        if (!boxes) boxes = RescuePlainText(text);
    }
    if (!boxes) {
        context.user.Beep();
        context.user.Tell(context.configuration.messages.Message("InvalidStory"),
                          MessageIcon::Critical);
        story.boxes = {};
        story.counters = {};
        return StoryReadOutcome::NotRead;
    }
    for (int index = 0; index < kTextBoxCount; ++index) {
        story.boxes[index] = std::move((*boxes)[index]);
        story.counters[index] = {};
        if (TagHolds(context.window, TextBoxControlName(index), "invisible")) continue;
        story.counters[index].count = CountBoxCharacters(story.boxes[index], 0, 0);
    }
    return StoryReadOutcome::ReadAsSimpleText;
}

}  // namespace tessarin
