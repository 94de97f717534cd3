#include <benchmark/benchmark.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "transmission/ftp_client.h"

namespace fs = std::filesystem;

namespace {

// What a send of 50 stories with 100 pictures moves: 50 story files of 8 KB and 100 pictures
// of 500 KB, uploaded to a local FTP server by the program's client on one connection, and
// by curl -T in one run of curl to the same server.
constexpr int kStories = 50;
constexpr int kPictures = 100;

struct LocalFtp {
    LocalFtp() {
        root = fs::temp_directory_path() / ("tessarin-bench-ftp-" + std::to_string(getpid()));
        fs::create_directories(root / "home");
        fs::create_directories(root / "files");
        std::mt19937 random(7);
        const auto write = [&](const std::string& name, std::size_t size) {
            std::string bytes(size, '\0');
            for (char& c : bytes)
                c = static_cast<char>(random());
            std::ofstream(root / "files" / name, std::ios::binary) << bytes;
            files.push_back(root / "files" / name);
            total += static_cast<std::int64_t>(size);
        };
        for (int index = 0; index < kStories; ++index)
            write("story" + std::to_string(index) + ".xml", 8 * 1024);
        for (int index = 0; index < kPictures; ++index)
            write("picture" + std::to_string(index) + ".jpg", 500 * 1024);
        const std::string portFile = (root / "port").string();
        pid = fork();
        if (pid == 0) {
            if (std::freopen("/dev/null", "w", stderr) == nullptr) _exit(126);
            execl("/usr/bin/python3", "python3",
                  TESSARIN_SOURCE_DIR "/tests/support/transfer_servers.py", "ftp", portFile.c_str(),
                  (root / "home").c_str(), "reporter", "secret", static_cast<char*>(nullptr));
            _exit(127);
        }
        for (int wait = 0; wait < 1500 && !fs::exists(portFile); ++wait)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        std::ifstream(portFile) >> port;
    }
    ~LocalFtp() {
        kill(pid, SIGTERM);
        waitpid(pid, nullptr, 0);
        fs::remove_all(root);
    }
    std::string Address() const { return "127.0.0.1:" + std::to_string(port); }

    fs::path root;
    std::vector<fs::path> files;
    std::int64_t total = 0;
    pid_t pid = -1;
    int port = 0;
};

LocalFtp& Server() {
    static LocalFtp server;
    return server;
}

void BM_FtpClientSend(benchmark::State& state) {
    LocalFtp& server = Server();
    for (auto _ : state) {
        tessarin::FtpClient ftp;
        if (!ftp.OpenConnection(server.Address(), "reporter", "secret")) {
            state.SkipWithError(ftp.GetLastErrorMessage().c_str());
            return;
        }
        for (const fs::path& file : server.files) {
            if (!ftp.FTPUploadFile(file, file.filename().string())) {
                state.SkipWithError(ftp.GetLastErrorMessage().c_str());
                return;
            }
        }
    }
    state.SetBytesProcessed(state.iterations() * server.total);
}
BENCHMARK(BM_FtpClientSend)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);

void BM_CurlUploadSameFiles(benchmark::State& state) {
    LocalFtp& server = Server();
    std::string names;
    for (const fs::path& file : server.files)
        names += (names.empty() ? "" : ",") + file.filename().string();
    const std::string command = "cd '" + (server.root / "files").string() +
                                "' && curl -s -P - -u reporter:secret -T '{" + names + "}' ftp://" +
                                server.Address() + "/";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("curl failed");
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * server.total);
}
BENCHMARK(BM_CurlUploadSameFiles)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);

}  // namespace
