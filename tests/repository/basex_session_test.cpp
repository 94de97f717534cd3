#include "repository/basex_session.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tessarin {
namespace {

TEST(BaseXSession, GivesUpOnASilentPeerAfterTheTimeout) {
    // The kernel takes the connection of a listening socket; no greeting ever comes.
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size), 0);
    BaseXSession session(std::chrono::milliseconds(200));
    EXPECT_FALSE(session.Open({"127.0.0.1", ntohs(address.sin_port)}, "admin", "admin"));
    EXPECT_EQ(session.error(), "Connection timed out");
    close(listener);
}

}  // namespace
}  // namespace tessarin
