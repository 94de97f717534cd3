#include "config/profile_file.h"

#include <system_error>

#include "common/file_io.h"
#include "common/windows1252.h"
#include "config/profile_edit.h"
#include "config/profile_lines.h"

namespace tessarin {
namespace {

// The file's bytes: empty when there is no file, std::nullopt when it exists but cannot be read.
std::optional<std::string> LoadBytes(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error) && !error) return std::string();
    return ReadFileBytes(file);
}

}  // namespace

ProfileContents::ProfileContents(std::string text)
    : text_(std::make_unique<const std::string>(std::move(text))),
      lines_(std::make_unique<const ProfileLines>(*text_)) {}

ProfileContents::ProfileContents(ProfileContents&&) noexcept = default;
ProfileContents& ProfileContents::operator=(ProfileContents&&) noexcept = default;
ProfileContents::~ProfileContents() = default;

std::optional<std::string> ProfileContents::Read(std::string_view section,
                                                 std::string_view key) const {
    const auto index = lines_->FindKey(Utf8ToWindows1252(section), Utf8ToWindows1252(key));
    if (!index) return std::nullopt;
    const std::string_view value = lines_->Lines()[*index].value;
    if (value.empty()) return std::nullopt;
    return Windows1252ToUtf8(value.substr(0, ProfileFile::kMaxValueLength));
}

ProfileContents ProfileFile::Load() const {
    return ProfileContents(LoadBytes(file_).value_or(std::string()));
}

std::optional<std::string> ProfileFile::Read(std::string_view section, std::string_view key) const {
    return Load().Read(section, key);
}

bool ProfileFile::Write(std::string_view section, std::string_view key, std::string_view value) {
    return Write({ProfileEntry{std::string(section), std::string(key), std::string(value)}});
}

bool ProfileFile::Write(const std::vector<ProfileEntry>& entries) {
    auto bytes = LoadBytes(file_);
    if (!bytes) return false;
    const auto text = ProfileTextWithEntries(ProfileContents(std::move(*bytes)), entries);
    return text && WriteFileAtomically(file_, *text);
}

}  // namespace tessarin
