#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "config/messages_section.h"
#include "repository/basex_session.h"
#include "repository/repository_store.h"

namespace fs = std::filesystem;

namespace {

// Storing a saved story of 100 KB in the repository's tracking base by the program's
// routine (connect, log in, open the base, add the document), against BaseX's own client
// adding the same file to another base of the same server in one run of the client.
constexpr std::size_t kStoryBytes = 100 * 1024;

int FreePort() {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    bind(fd, reinterpret_cast<sockaddr*>(&address), size);
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size);
    close(fd);
    return ntohs(address.sin_port);
}

struct LocalRepository {
    LocalRepository() {
        root = fs::temp_directory_path() / ("tessarin-bench-basex-" + std::to_string(getpid()));
        fs::create_directories(root / "home");
        std::string story =
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Story><Metadata><Author>Bench "
            "Desk</Author></Metadata><Body><TextBox6>";
        while (story.size() < kStoryBytes - 40)
            story +=
                "Le conseil a vot\xE9 le budget de l'ann\xE9"
                "e. ";
        story += "</TextBox6></Body></Story>\r\n";
        std::ofstream(root / "story.xml", std::ios::binary) << story;
        std::ofstream(root / "add.bxs")
            << "OPEN BenchClient\nADD TO Bench/story.xml " << (root / "story.xml").string() << "\n";
        javaArguments = "-Dorg.basex.path=" + (root / "home").string() +
                        " -Duser.home=" + (root / "home").string();
        port = FreePort();
        const std::string portArgument = "-p" + std::to_string(port);
        pid = fork();
        if (pid == 0) {
            setenv("JAVA_ARGS", javaArguments.c_str(), 1);
            if (std::freopen("/dev/null", "w", stdout) == nullptr ||
                std::freopen("/dev/null", "w", stderr) == nullptr) {
                _exit(126);
            }
            execl("/usr/bin/basexserver", "basexserver", "-n127.0.0.1", portArgument.c_str(), "-z",
                  static_cast<char*>(nullptr));
            _exit(127);
        }
        for (int wait = 0; wait < 600; ++wait) {
            tessarin::BaseXSession session(std::chrono::seconds(10));
            if (session.Open({"127.0.0.1", port}, "admin", "admin")) {
                session.Execute("CREATE DB BenchTracking");
                session.Execute("CREATE DB BenchClient");
                return;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    }
    ~LocalRepository() {
        kill(pid, SIGTERM);
        waitpid(pid, nullptr, 0);
        fs::remove_all(root);
    }

    fs::path root;
    std::string javaArguments;
    pid_t pid = -1;
    int port = 0;
};

LocalRepository& Repository() {
    static LocalRepository repository;
    return repository;
}

void BM_StoreTrackingDocument(benchmark::State& state) {
    LocalRepository& repository = Repository();
    tessarin::TextMLSettings settings;
    settings.ServerName = "127.0.0.1:" + std::to_string(repository.port);
    settings.TrackingDocBaseName = "BenchTracking";
    tessarin::MessageTexts messages;
    tessarin::ScriptedInteraction user;
    tessarin::WindowState window;
    tessarin::RepositoryContext context{settings, messages, user, window};
    for (auto _ : state) {
        const tessarin::RepositoryResult result =
            tessarin::StoreTrackingDocument("story.xml", repository.root, context);
        if (result.outcome != tessarin::RepositoryOutcome::Stored) {
            state.SkipWithError(result.message.c_str());
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kStoryBytes));
}
BENCHMARK(BM_StoreTrackingDocument)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);

void BM_BaseXClientAddSameFile(benchmark::State& state) {
    LocalRepository& repository = Repository();
    const std::string command = "JAVA_ARGS='" + repository.javaArguments +
                                "' /usr/bin/basexclient -n127.0.0.1 -p" +
                                std::to_string(repository.port) + " -Uadmin -Padmin '" +
                                (repository.root / "add.bxs").string() + "' >/dev/null 2>&1";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("basexclient failed");
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kStoryBytes));
}
BENCHMARK(BM_BaseXClientAddSameFile)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);

}  // namespace
