#include "support/file_watch.h"

#include <poll.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

namespace tessarin::testing {

FileWatch::FileWatch(const std::filesystem::path& path, std::uint32_t mask)
    : descriptor_(::inotify_init1(IN_NONBLOCK)) {
    ::inotify_add_watch(descriptor_, path.c_str(), mask);
}

FileWatch::~FileWatch() {
    ::close(descriptor_);
}

int FileWatch::Take(std::uint32_t mask) {
    int count = 0;
    alignas(inotify_event) std::array<char, 4096> events{};
    for (ssize_t length; (length = ::read(descriptor_, events.data(), events.size())) > 0;) {
        for (ssize_t offset = 0; offset < length;) {
            const auto* event = reinterpret_cast<const inotify_event*>(events.data() + offset);
            if ((event->mask & mask) != 0) ++count;
            offset += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    return count;
}

bool FileWatch::WaitWhileRunning(int process) {
    for (pollfd ready{descriptor_, POLLIN, 0};;) {
        siginfo_t ended{};
        const int options = WEXITED | WNOHANG | WNOWAIT;
        if (::waitid(P_PID, static_cast<id_t>(process), &ended, options) != 0 ||
            ended.si_pid != 0) {
            return false;
        }
        if (::poll(&ready, 1, 5) > 0) {
            Take(0);
            return true;
        }
    }
}

}  // namespace tessarin::testing
