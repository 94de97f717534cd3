#include "story/story_href.h"

#include <cctype>
#include <string>
#include <system_error>

namespace tessarin {
namespace {

constexpr std::string_view kFileScheme = "file://";

bool StartsWithDriveLetter(std::string_view text) {
    return text.size() >= 2 && std::isalpha(static_cast<unsigned char>(text[0])) && text[1] == ':';
}

std::string_view WithoutScheme(std::string_view href) {
    if (!href.starts_with(kFileScheme)) return href;
    href.remove_prefix(kFileScheme.size());
    if (href.starts_with('/') && StartsWithDriveLetter(href.substr(1))) href.remove_prefix(1);
    return href;
}

}  // namespace

std::filesystem::path PathFromStoryHref(std::string_view href) {
    const std::string_view location = WithoutScheme(href);
    std::string path;
    path.reserve(location.size());
    for (std::size_t position = 0; position < location.size();) {
        const std::string_view rest = location.substr(position);
        if (rest.starts_with("%20")) {
            path += ' ';
            position += 3;
        } else if (rest.starts_with("%c3%a9")) {
            path += "\xC3\xA9";
            position += 6;
        } else {
            const char character = location[position++];
            path += character == '\\' ? '/' : character;
        }
    }
    return std::filesystem::path(path);
}

bool IsRelativeStoryPath(const std::filesystem::path& path) {
    return path.is_relative() && !StartsWithDriveLetter(path.native());
}

std::optional<std::filesystem::path> LinkedFilePath(std::string_view href,
                                                    const std::filesystem::path& storyFolder) {
    std::filesystem::path path = PathFromStoryHref(href);
    if (path.empty() || !IsRelativeStoryPath(path)) return path;
    path = path.lexically_normal();
    if (!path.empty() && *path.begin() == "..") return std::nullopt;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::absolute(storyFolder, error);
    return (error ? storyFolder : folder) / path;
}

}  // namespace tessarin
