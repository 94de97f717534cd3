#pragma once

#include <string>

#include "support/temp_dir.h"
#include "support/tool_run.h"

namespace tessarin::testing {

// A BaseX server of the system (basexserver) on 127.0.0.1 and a free port, with its home,
// settings and databases in a folder of its own, stopped when the object goes. The user
// is admin with the password admin. Start-up takes a Java start, so a test program shares
// one server among its tests (Shared()).
class LocalBaseXServer {
  public:
    LocalBaseXServer();
    ~LocalBaseXServer();
    LocalBaseXServer(const LocalBaseXServer&) = delete;
    LocalBaseXServer& operator=(const LocalBaseXServer&) = delete;

    static LocalBaseXServer& Shared();

    bool running() const { return pid_ > 0 && port_ > 0; }
    int port() const { return port_; }
    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }

    // Runs BaseX's own client on the query, with the server's private home; its standard
    // output.
    std::string ClientQuery(const std::string& query) const;
    // Runs BaseX's own client on one command ("CREATE DB name").
    ToolRun ClientCommand(const std::string& command) const;

  private:
    std::string ClientLine() const;

    TempDir home_;
    int pid_ = -1;
    int port_ = 0;
};

// A port of 127.0.0.1 that was free a moment ago (the kernel's choice for port 0): where
// nothing listens, as a server that is down.
int FreePort();

}  // namespace tessarin::testing
