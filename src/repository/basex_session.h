#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/tcp_stream.h"

namespace tessarin {

// The host and port of a repository server named "host[:port]"; the port is 1984 when the
// name gives none.
struct RepositoryAddress {
    std::string host;
    int port = 1984;
};
RepositoryAddress RepositoryAddressOf(std::string_view serverName);

// One session with a BaseX server over its client/server protocol: a login by digest, then
// database commands, queries with bound variables and documents added under a path.
// Every call waits at most the timeout for each read and write. After a failure, error()
// holds the server's own words, or why the connection failed.
class BaseXSession {
  public:
    explicit BaseXSession(std::chrono::milliseconds timeout) : stream_(timeout) {}

    // Connects and logs in. Refused credentials give "Access denied.".
    bool Open(const RepositoryAddress& address, std::string_view user, std::string_view password);

    // Runs a database command ("OPEN base", "LIST") and gives its result.
    std::optional<std::string> Execute(std::string_view command);

    // Runs an XQuery whose external variables ("$name") are bound to the given strings, and
    // gives its serialised result.
    using Bindings = std::vector<std::pair<std::string, std::string>>;
    std::optional<std::string> Query(std::string_view query, const Bindings& bindings);

    // Adds a document to the opened database at path; one already there is kept beside it.
    bool Add(std::string_view path, std::string_view content);

    const std::string& error() const { return error_; }

  private:
    bool SendStrings(char code, const std::vector<std::string_view>& strings);
    std::optional<char> NextByte();
    std::optional<std::string> ReadString();
    std::optional<bool> ReadStatus();
    // A query step's answer: its string, the status byte and, when that tells a failure,
    // the error text.
    std::optional<std::string> QueryAnswer();
    bool Fail(std::string text);

    TcpStream stream_;
    std::string pending_;
    std::size_t read_ = 0;
    std::string error_;
};

}  // namespace tessarin
