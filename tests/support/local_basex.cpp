#include "support/local_basex.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "repository/basex_session.h"
#include "support/shell_quote.h"
#include "support/tool_run.h"

namespace tessarin::testing {
namespace {

// BaseX reads its settings and keeps its databases under org.basex.path; user.home moves
// too, so that nothing of the machine's own BaseX set-up is read or written.
std::string JavaArguments(const std::filesystem::path& home) {
    return "-Dorg.basex.path=" + home.string() + " -Duser.home=" + home.string();
}

sockaddr_in Loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

bool Accepts(int port) {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Loopback(port);
    const bool connected = connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(fd);
    return connected;
}

}  // namespace

int FreePort() {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    const bool bound = bind(fd, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                       getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    close(fd);
    return bound ? ntohs(address.sin_port) : 0;
}

LocalBaseXServer::LocalBaseXServer() : port_(FreePort()) {
    const std::string javaArguments = JavaArguments(home_.path());
    const std::string log = (home_ / "server.log").string();
    const std::string portArgument = "-p" + std::to_string(port_);
    pid_ = fork();
    if (pid_ == 0) {
        setenv("JAVA_ARGS", javaArguments.c_str(), 1);
        if (std::freopen(log.c_str(), "w", stdout) == nullptr ||
            std::freopen(log.c_str(), "a", stderr) == nullptr) {
            _exit(126);
        }
        execl("/usr/bin/basexserver", "basexserver", "-n127.0.0.1", portArgument.c_str(), "-z",
              static_cast<char*>(nullptr));
        _exit(127);
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (std::chrono::steady_clock::now() < deadline) {
        if (Accepts(port_)) return;
        if (waitpid(pid_, nullptr, WNOHANG) == pid_) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ADD_FAILURE() << "basexserver did not listen:\n" << ReadBytes(home_ / "server.log");
}

LocalBaseXServer::~LocalBaseXServer() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}

LocalBaseXServer& LocalBaseXServer::Shared() {
    static LocalBaseXServer server;
    return server;
}

bool LocalBaseXServer::CreateDatabases(std::initializer_list<std::string_view> names) const {
    BaseXSession session(std::chrono::seconds(10));
    if (!session.Open(RepositoryAddressOf(address()), "admin", "admin")) return false;
    for (std::string_view name : names) {
        if (!session.Execute("CREATE DB " + std::string(name))) return false;
    }
    return true;
}

std::string LocalBaseXServer::ClientQuery(const std::string& query) const {
    const std::filesystem::path file = home_.Write("query.xq", query);
    // The wrapper's warnings about optional libraries on standard error are left out.
    return RunTool("{ JAVA_ARGS=" + Quoted(JavaArguments(home_.path())) +
                   " /usr/bin/basexclient -n127.0.0.1 -p" + std::to_string(port_) +
                   " -Uadmin -Padmin " + Quoted(file.string()) + " 2>/dev/null; }")
        .output;
}

}  // namespace tessarin::testing
