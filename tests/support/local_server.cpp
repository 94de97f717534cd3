#include "support/local_server.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "support/shell_quote.h"
#include "support/tool_run.h"

namespace fs = std::filesystem;

namespace tessarin::testing {
namespace {

constexpr const char* kPython = "/usr/bin/python3";

std::string ServerScript() {
    return TESSARIN_SOURCE_DIR "/tests/support/transfer_servers.py";
}

}  // namespace

LocalServer::~LocalServer() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}

void LocalServer::Start(const std::vector<std::string>& arguments) {
    const fs::path portFile = scratch_ / "port";
    std::vector<std::string> all{kPython, ServerScript(), arguments.at(0), portFile.string()};
    all.insert(all.end(), arguments.begin() + 1, arguments.end());
    const std::string log = (scratch_ / "server.log").string();
    pid_ = fork();
    if (pid_ == 0) {
        // The server's own log stays out of the test's output.
        if (std::freopen(log.c_str(), "w", stderr) == nullptr) _exit(126);
        std::vector<char*> argv;
        for (std::string& argument : all)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        execv(kPython, argv.data());
        _exit(127);
    }
    ASSERT_GT(pid_, 0);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (std::chrono::steady_clock::now() < deadline) {
        const std::string text = ReadBytes(portFile);
        if (!text.empty()) {
            port_ = std::stoi(text);
            return;
        }
        if (waitpid(pid_, nullptr, WNOHANG) == pid_) {
            pid_ = -1;
            FAIL() << "the server " << arguments.at(0) << " ended before it listened";
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    FAIL() << "the server " << arguments.at(0) << " did not listen";
}

void LocalServer::Kill() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    pid_ = -1;
}

LocalFtpServer::LocalFtpServer(bool withTls) : tls(withTls) {
    std::vector<std::string> arguments{"ftp", home.path().string(), "reporter", "secret"};
    if (tls) {
        certificate = keys / "server.pem";
        const std::string command =
            "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=127.0.0.1 "
            "-addext subjectAltName=IP:127.0.0.1 -keyout " +
            Quoted(certificate.string()) + " -out " + Quoted((keys / "cert").string()) +
            " 2>/dev/null && cat " + Quoted((keys / "cert").string()) + " >> " +
            Quoted(certificate.string());
        EXPECT_EQ(std::system(command.c_str()), 0);
        certificate = keys / "cert";
        arguments.push_back((keys / "server.pem").string());
    }
    server.Start(arguments);
}

LocalSmtpServer::LocalSmtpServer(const std::string& mode) {
    server.Start({"smtp", mail.path().string(), mode});
}

std::string LocalSmtpServer::Message(int number) const {
    return ReadBytes(mail / (std::to_string(number) + ".eml"));
}

std::string RunPython(const std::string& program, const std::vector<std::string>& arguments) {
    std::string command = std::string(kPython) + " -c " + Quoted(program);
    for (const std::string& argument : arguments)
        command += " " + Quoted(argument);
    // Only what the program prints is wanted: its warnings on standard error are left out.
    const ToolRun run = RunTool("{ " + command + " 2>/dev/null; }");
    EXPECT_EQ(run.exitStatus, 0) << program;
    return run.output;
}

}  // namespace tessarin::testing
