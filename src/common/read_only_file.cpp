#include "common/read_only_file.h"

#include <system_error>

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr fs::perms kAnyWrite =
    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

}  // namespace

bool IsReadOnlyFile(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return !error && fs::is_regular_file(status) &&
           (status.permissions() & kAnyWrite) == fs::perms::none;
}

void MakeReadOnly(const fs::path& file) {
    std::error_code ignored;
    fs::permissions(file, kAnyWrite, fs::perm_options::remove, ignored);
}

void MakeWritable(const fs::path& file) {
    std::error_code ignored;
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, ignored);
}

}  // namespace tessarin
