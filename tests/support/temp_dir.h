#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tessarin::testing {

// A fresh folder under the system's temporary directory, removed with everything in it
// when the object goes out of scope.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

    // Writes bytes to a file below the folder (creating parent folders) and returns its path.
    std::filesystem::path Write(std::string_view relative, std::string_view bytes) const;

  private:
    std::filesystem::path path_;
};

// The whole content of a file as bytes; empty when it cannot be read.
std::string ReadBytes(const std::filesystem::path& file);

}  // namespace tessarin::testing
