#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace tessarin {

// A TCP connection with a deadline on connecting and on every read and write, so that a
// peer that does not answer never holds the program.
class TcpStream {
  public:
    explicit TcpStream(std::chrono::milliseconds timeout) : timeout_(timeout) {}
    ~TcpStream();
    TcpStream(const TcpStream&) = delete;
    TcpStream& operator=(const TcpStream&) = delete;

    // Connects to the first address of host that accepts within the deadline.
    bool Connect(const std::string& host, int port);
    bool Send(std::string_view bytes);
    // Appends what has arrived, at least one byte; false on a timeout, an error or the end
    // of the stream.
    bool Receive(std::string& into);

    // Why the last operation failed: its errno, and in words.
    int error() const { return error_; }
    const std::string& errorText() const { return errorText_; }

  private:
    bool ConnectTo(const void* address, unsigned length, int family, int type, int protocol);
    bool Wait(short events);
    bool Fail(int error, std::string text = "");

    std::chrono::milliseconds timeout_;
    int fd_ = -1;
    int error_ = 0;
    std::string errorText_;
};

}  // namespace tessarin
