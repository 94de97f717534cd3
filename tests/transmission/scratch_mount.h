#pragma once

#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace tessarin::testing {

// A small tmpfs mounted on a folder for the life of the object, to give a test a real full
// disk or a real read-only file system (the superuser ignores permission bits, not these).
// Mounting needs the superuser: Ready() tells whether the mount is there.
class ScratchMount {
  public:
    ScratchMount(const std::filesystem::path& folder, std::size_t kilobytes) : folder_(folder) {
        const std::string options = "size=" + std::to_string(kilobytes) + "k";
        mounted_ = ::geteuid() == 0 &&
                   ::mount("tessarin-test", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
    }
    ~ScratchMount() {
        if (mounted_) ::umount2(folder_.c_str(), MNT_DETACH);
    }
    ScratchMount(const ScratchMount&) = delete;
    ScratchMount& operator=(const ScratchMount&) = delete;

    bool Ready() const { return mounted_; }

    // Makes the file system read-only, with what it holds.
    bool MakeReadOnly() {
        return ::mount("tessarin-test", folder_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY,
                       nullptr) == 0;
    }

  private:
    std::filesystem::path folder_;
    bool mounted_ = false;
};

}  // namespace tessarin::testing
