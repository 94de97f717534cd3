#pragma once

#include <cstdint>
#include <filesystem>

namespace tessarin::testing {

// What the kernel tells of a file or a folder (inotify) from the object's making on: the
// events of the mask given (IN_OPEN, IN_CREATE...).
class FileWatch {
  public:
    FileWatch(const std::filesystem::path& path, std::uint32_t mask);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    // How many of the events that came since the last call have a bit of the mask.
    int Take(std::uint32_t mask);

    // Waits for the next event while the process runs; false when it ended first. The
    // process is left to be waited for.
    bool WaitWhileRunning(int process);

  private:
    int descriptor_;
};

}  // namespace tessarin::testing
