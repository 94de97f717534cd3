#include "common/tcp_stream.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace tessarin {

TcpStream::~TcpStream() {
    if (fd_ >= 0) close(fd_);
}

bool TcpStream::Connect(const std::string& host, int port) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const int status = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
    if (status != 0) return Fail(EHOSTUNREACH, gai_strerror(status));
    bool connected = false;
    for (addrinfo* address = found; address != nullptr && !connected; address = address->ai_next) {
        connected = ConnectTo(address->ai_addr, address->ai_addrlen, address->ai_family,
                              address->ai_socktype, address->ai_protocol);
    }
    freeaddrinfo(found);
    // No address at all to try is told as a refusal.
    if (!connected && errorText_.empty()) return Fail(ECONNREFUSED);
    return connected;
}

// The socket connects without blocking, so that the deadline holds for the connection too;
// it is then used in blocking mode behind poll.
bool TcpStream::ConnectTo(const void* address, unsigned length, int family, int type,
                          int protocol) {
    if (fd_ >= 0) close(fd_);
    fd_ = socket(family, type | SOCK_NONBLOCK | SOCK_CLOEXEC, protocol);
    if (fd_ < 0) return Fail(errno);
    if (connect(fd_, static_cast<const sockaddr*>(address), length) != 0) {
        if (errno != EINPROGRESS) return Fail(errno);
        if (!Wait(POLLOUT)) return false;
        int error = 0;
        socklen_t size = sizeof error;
        if (getsockopt(fd_, SOL_SOCKET, SO_ERROR, &error, &size) != 0) return Fail(errno);
        if (error != 0) return Fail(error);
    }
    return fcntl(fd_, F_SETFL, fcntl(fd_, F_GETFL) & ~O_NONBLOCK) == 0 || Fail(errno);
}

bool TcpStream::Send(std::string_view bytes) {
    while (!bytes.empty()) {
        if (!Wait(POLLOUT)) return false;
        const ssize_t sent = send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0) return Fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

bool TcpStream::Receive(std::string& into) {
    if (!Wait(POLLIN)) return false;
    char buffer[16384];
    const ssize_t got = recv(fd_, buffer, sizeof buffer, 0);
    if (got < 0) return Fail(errno);
    if (got == 0) return Fail(ECONNRESET);  // the peer hung up
    into.append(buffer, static_cast<std::size_t>(got));
    return true;
}

bool TcpStream::Wait(short events) {
    if (fd_ < 0) return Fail(ENOTCONN);
    pollfd watched{fd_, events, 0};
    const int ready = poll(&watched, 1, static_cast<int>(timeout_.count()));
    if (ready < 0) return Fail(errno);
    if (ready == 0) return Fail(ETIMEDOUT);
    return true;
}

bool TcpStream::Fail(int error, std::string text) {
    error_ = error;
    errorText_ = text.empty() ? std::generic_category().message(error) : std::move(text);
    return false;
}

}  // namespace tessarin
