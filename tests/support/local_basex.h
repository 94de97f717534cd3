#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "support/temp_dir.h"

namespace tessarin::testing {

// The system's BaseX server on 127.0.0.1 and a free port, its settings and databases in a
// folder of its own, stopped when the object goes; user admin, password admin. A Java start
// is slow, so a test program shares one (Shared()).
class LocalBaseXServer {
  public:
    LocalBaseXServer();
    ~LocalBaseXServer();
    static LocalBaseXServer& Shared();

    bool running() const { return pid_ > 0 && port_ > 0; }
    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }
    // Makes each database anew, empty, through the program's own session; false when one
    // cannot be made.
    bool CreateDatabases(std::initializer_list<std::string_view> names) const;
    // What BaseX's own client prints for the query.
    std::string ClientQuery(const std::string& query) const;

  private:
    TempDir home_;
    int pid_ = -1;
    int port_ = 0;
};

// A port of 127.0.0.1 that was free a moment ago: where nothing listens.
int FreePort();

}  // namespace tessarin::testing
