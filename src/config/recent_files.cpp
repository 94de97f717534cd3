#include "config/recent_files.h"

#include <algorithm>
#include <vector>

#include "config/profile_values.h"

namespace tessarin {
namespace {

std::string FileKey(std::size_t index) {
    return "File" + std::to_string(index + 1);
}

std::string_view FileName(std::string_view path) {
    const auto separator = path.find_last_of("\\/");
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

bool HasStoryExtension(std::string_view path) {
    const std::string_view name = FileName(path);
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos) return false;
    const std::string_view extension = name.substr(dot + 1);
    constexpr std::string_view kStoryExtension = "XML";
    return std::equal(extension.begin(), extension.end(), kStoryExtension.begin(),
                      kStoryExtension.end(), [](char letter, char upper) {
                          return (letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter) ==
                                 upper;
                      });
}

}  // namespace

RecentFiles ReadRecentFiles(const ProfileContents& profile) {
    RecentFiles list;
    list.UseMRU = ReadFlag(profile, kFileMRUSection, "UseMRU", list.UseMRU);
    for (std::size_t index = 0; index < kRecentFileCount; ++index) {
        list.File[index] = ReadText(profile, kFileMRUSection, FileKey(index), "");
    }
    return list;
}

bool UpdateMRU(RecentFiles& list, std::string_view path) {
    if (!list.UseMRU || !HasStoryExtension(path)) return false;
    auto place = std::find(list.File.begin(), list.File.end(), path);
    if (place == list.File.end()) place = list.File.end() - 1;
    std::rotate(list.File.begin(), place, place + 1);
    list.File.front() = std::string(path);
    return true;
}

void ClearMRU(RecentFiles& list) {
    list.File.fill(std::string());
}

bool WriteRecentFiles(ProfileFile& profile, const RecentFiles& list) {
    std::vector<ProfileEntry> entries;
    for (std::size_t index = 0; index < kRecentFileCount; ++index) {
        entries.push_back({std::string(kFileMRUSection), FileKey(index), list.File[index]});
    }
    return profile.Write(entries);
}

std::string RecentFileDisplayName(std::string_view path) {
    return std::string(FileName(path));
}

bool RecentFilesSeparatorVisible(const RecentFiles& list) {
    return std::any_of(list.File.begin(), list.File.end(),
                       [](const std::string& entry) { return !entry.empty(); });
}

}  // namespace tessarin
