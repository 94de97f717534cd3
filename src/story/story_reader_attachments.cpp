#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "story/story_href.h"
#include "story/story_reader_parts.h"

namespace tessarin {
namespace {

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// "a; b;c" gives "a", "b", "c"; an empty text gives no keyword at all.
std::vector<std::string> SplitKeywords(std::string_view text) {
    std::vector<std::string> keywords;
    if (text.empty()) return keywords;
    for (;;) {
        const std::size_t semicolon = text.find(';');
        keywords.emplace_back(TrimBlanks(text.substr(0, semicolon)));
        if (semicolon == std::string_view::npos) break;
        text.remove_prefix(semicolon + 1);
    }
    return keywords;
}

bool FileIsThere(const std::filesystem::path& path) {
    std::error_code error;
    return !path.empty() && std::filesystem::is_regular_file(path, error);
}

// The linked file of a bag when it is there; otherwise the user is warned and nothing is
// returned, so that the bag is left out.
std::optional<std::filesystem::path> LinkedFile(const XmlNode& link, std::string_view unknownKey,
                                                const std::filesystem::path& storyPath,
                                                const StoryContext& context) {
    std::filesystem::path path = PathFromStoryHref(link.Attribute("href"));
    if (FileIsThere(path)) return path;
    const MessageTexts& messages = context.configuration.messages;
    context.user.Tell(messages.Message(unknownKey) + ": " + path.string() + "\n" +
                          messages.Message("StoryLabel") + ": " + storyPath.string(),
                      MessageIcon::Exclamation);
    return std::nullopt;
}

void ReadImages(const XmlNode& root, const std::filesystem::path& storyPath,
                const StoryContext& context, StoryRecord& story) {
    for (const XmlNode& bag : root.SelectNodes("Images/ImageBag")) {
        auto path = LinkedFile(bag.SelectSingleNode("Image"), "UnknownImage", storyPath, context);
        if (!path) continue;
        StoryImage image;
        image.number = static_cast<int>(story.images.size()) + 1;
        image.path = path->string();
        image.caption = bag.SelectSingleNode("Caption").Text();
        image.credit = bag.SelectSingleNode("Credit").Text();
        image.iptcKeywords = SplitKeywords(bag.SelectSingleNode("IPTCKeywords").Text());
        story.images.push_back(std::move(image));
    }
}

void ReadFiles(const XmlNode& root, const std::filesystem::path& storyPath,
               const StoryContext& context, StoryRecord& story) {
    for (const XmlNode& bag : root.SelectNodes("Files/FileBag")) {
        auto path =
            LinkedFile(bag.SelectSingleNode("File"), "UnknownOtherFile", storyPath, context);
        if (!path) continue;
        StoryFile file;
        file.number = static_cast<int>(story.files.size()) + 1;
        file.path = path->string();
        file.description = bag.SelectSingleNode("Description").Text();
        story.files.push_back(std::move(file));
    }
}

}  // namespace

void ReadStoryAttachments(const XmlNode& root, const std::filesystem::path& storyPath,
                          const StoryContext& context, StoryRecord& story) {
    ReadImages(root, storyPath, context, story);
    ReadFiles(root, storyPath, context, story);
}

}  // namespace tessarin
