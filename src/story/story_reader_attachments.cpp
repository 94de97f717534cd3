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

// Why the linked file cannot be taken: nothing when it can, an empty text when it is not
// there, else the reason. Only a regular file can be taken: a device, a pipe or a folder
// would hang or fail every save and send that copies it.
std::optional<std::string> Refusal(const std::optional<std::filesystem::path>& path) {
    namespace fs = std::filesystem;
    if (!path) return "A relative path must stay in the story's folder or below it.";
    std::error_code error;
    switch (fs::status(*path, error).type()) {
        case fs::file_type::regular:
            return std::nullopt;
        case fs::file_type::not_found:
        case fs::file_type::none:
            return "";
        case fs::file_type::directory:
            return "This is a folder, not a regular file.";
        case fs::file_type::block:
        case fs::file_type::character:
            return "This is a device, not a regular file.";
        case fs::file_type::fifo:
            return "This is a named pipe, not a regular file.";
        default:
            return "This is not a regular file.";
    }
}

// The linked file of a bag when it can be taken; otherwise the user is told why and nothing
// is returned, so that the bag is left out.
std::optional<std::filesystem::path> LinkedFile(const XmlNode& link, std::string_view unknownKey,
                                                const std::filesystem::path& storyPath,
                                                const StoryContext& context) {
    const std::string href = link.Attribute("href");
    const auto path = LinkedFilePath(href, storyPath.parent_path());
    const auto refusal = Refusal(path);
    if (!refusal) return path;
    const MessageTexts& messages = context.configuration.messages;
    std::string message =
        messages.Message(unknownKey) + ": " + (path ? *path : PathFromStoryHref(href)).string();
    if (!refusal->empty()) message += "\n" + *refusal;
    context.user.Tell(message + "\n" + messages.Message("StoryLabel") + ": " + storyPath.string(),
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
