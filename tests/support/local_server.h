#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace tessarin::testing {

// A real server started from the Python of the system on 127.0.0.1 and a free port
// (tests/support/transfer_servers.py), stopped when the object goes. Start() fails the test
// when the server does not come up.
class LocalServer {
  public:
    LocalServer() = default;
    ~LocalServer();
    LocalServer(const LocalServer&) = delete;
    LocalServer& operator=(const LocalServer&) = delete;

    void Start(const std::vector<std::string>& arguments);
    // Ends the server at once, as a crash or a cut line would.
    void Kill();
    int port() const { return port_; }
    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }

  private:
    TempDir scratch_;
    int pid_ = -1;
    int port_ = 0;
};

// An FTP server with one user, "reporter" / "secret", whose home is a folder the test owns.
struct LocalFtpServer {
    explicit LocalFtpServer(bool tls = false);
    std::string Address() const { return (tls ? "ftps://" : "") + server.address(); }

    bool tls;
    TempDir home;
    TempDir keys;
    std::filesystem::path certificate;  // the self-signed certificate of a TLS server
    LocalServer server;
};

// An SMTP server that keeps each message in mail/<n>.eml. Mode: "" accepts everything,
// "refuse-rcpt", "close-after-greeting", "silent".
struct LocalSmtpServer {
    explicit LocalSmtpServer(const std::string& mode = "");
    // The bytes of the n-th message (from 1); empty when it has not arrived.
    std::string Message(int number) const;

    TempDir mail;
    LocalServer server;
};

// Runs a Python program on the system's Python and gives what it printed; the test fails
// when the program fails.
std::string RunPython(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace tessarin::testing
