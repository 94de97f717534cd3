#include <benchmark/benchmark.h>

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "app/app_paths.h"
#include "app/user_interaction.h"
#include "config/load_configuration.h"
#include "session/editor_session.h"
#include "transmission/send_list.h"
#include "transmission/workflow_destinations.h"
#include "transmission/workflow_send.h"
#include "transmission/workflow_window.h"

namespace {

namespace fs = std::filesystem;
using namespace tessarin;
using Clock = std::chrono::steady_clock;

constexpr int kStories = 100;
constexpr int kPicturesPerStory = 2;
constexpr std::size_t kPictureBytes = 200 * 1024;

void Write(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string Configuration(const fs::path& root) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Tessarin Version=\"1\">\n"
           "<FTPTransmission><FTPServer IPNumber=\"ftp.example\"/></FTPTransmission>\n"
           "<Workflow Visible=\"true\" WorkflowDirectory=\"" +
           (root / "inbox").string() +
           "\"><Users><User Preferred=\"true\">Reporter</User></Users></Workflow>\n"
           "<Metadata><LastSaveDate Name=\"Saved\"/><Author Name=\"By\">Ann Lee</Author>"
           "</Metadata>\n<Story/>\n<Publications><Publication Name=\"Herald\"/></Publications>\n"
           "<Messages/>\n</Tessarin>\n";
}

std::string PictureName(int story, int picture) {
    return "picture-" + std::to_string(story) + "-" + std::to_string(picture) + ".jpg";
}

// A staged story of some 3 KB: its source, its pictures by their bare names.
std::string StagedStory(int number, const fs::path& source) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- story.xml -->\r\n"
        "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
        "<Author Name=\"By\">Ann Lee</Author>\r\n"
        "<LastSaveDate Name=\"Saved\">04/03/2024</LastSaveDate>"
        "<LastSaveTime>08:30</LastSaveTime>\r\n<LastSaveAuthor>Ann Lee"
        "</LastSaveAuthor>\r\n<Publication Name=\"Paper\">Herald</Publication>\r\n"
        "<OriginalPath Name=\"" +
        source.string() + "\"/></Metadata>\r\n<Body>\r\n<TextBox6 CharCount=\"2900\">";
    for (int paragraph = 0; paragraph < 29; ++paragraph)
        text +=
            "Le conseil municipal a vot\xe9 hier soir le budget des \xe9"
            "coles, dit-il.<p/>\r\n";
    text += "</TextBox6>\r\n</Body>\r\n<Images>\r\n";
    for (int picture = 0; picture < kPicturesPerStory; ++picture)
        text += "<ImageBag>\r\n<Image href=\"" + PictureName(number, picture) +
                "\"/>\r\n</ImageBag>\r\n";
    return text + "</Images>\r\n</Story>\r\n";
}

struct SendDesk {
    fs::path root =
        fs::temp_directory_path() / ("tessarin-bench-send-" + std::to_string(::getpid()));
    AppPaths paths;
    ScriptedInteraction user;
    std::string pictureBytes;

    SendDesk() {
        paths = MakeAppPaths(root / "app");
        CreateStartDirectories(paths);
        Write(paths.configurationFile, Configuration(root));
        std::mt19937 random(7);
        pictureBytes.resize(kPictureBytes);
        for (char& byte : pictureBytes)
            byte = static_cast<char>(random());
    }
    ~SendDesk() { fs::remove_all(root); }

    // The send list of the stories and their pictures, and an empty inbox.
    void Stage() {
        for (const char* folder : {"inbox", "stories"})
            fs::remove_all(root / folder);
        fs::create_directories(root / "inbox/Reporter");
        fs::create_directories(root / "stories");
        for (int story = 0; story < kStories; ++story) {
            const fs::path source = root / "stories" / ("story-" + std::to_string(story) + ".xml");
            const std::string staged = StagedStory(story, source);
            Write(source, staged);
            Write(paths.uploadDir / source.filename(), staged);
            for (int picture = 0; picture < kPicturesPerStory; ++picture)
                Write(paths.uploadDir / PictureName(story, picture), pictureBytes);
        }
        ::sync();
    }

    // A plain copy of what the list holds, file by file, into a fresh folder.
    double PlainCopySeconds() {
        const fs::path copy = root / "copy";
        fs::remove_all(copy);
        fs::create_directory(copy);
        ::sync();
        const auto start = Clock::now();
        for (const fs::directory_entry& entry : fs::directory_iterator(paths.uploadDir)) {
            if (entry.is_regular_file())
                fs::copy_file(entry.path(), copy / entry.path().filename());
        }
        return std::chrono::duration<double>(Clock::now() - start).count();
    }

    // The send of the list as the open window holds it, to the user chosen.
    double SendSeconds() {
        EditorSession session(paths, user);
        LoadConfiguration(paths.configurationFile, session.profile, session.preferences,
                          session.configuration, session.window);
        WorkflowWindow window;
        OpenWorkflowWindow(session, window);
        SelectDestinationNamed(window, "Reporter");
        ::sync();
        const auto start = Clock::now();
        const SendOutcome outcome = SendWorkflow(session, window);
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        return outcome == SendOutcome::Sent ? seconds : -1;
    }
};

// A send list of 100 stories with 200 pictures of 200 KB to a user's inbox, against a plain
// copy of the same files made in the same iteration. The counters give the plain copy's time
// and the ratio of the send to it.
void BM_SendList(benchmark::State& state) {
    SendDesk desk;
    double sendTotal = 0, copyTotal = 0;
    for (auto _ : state) {
        desk.Stage();
        const double copy = desk.PlainCopySeconds();
        const double send = desk.SendSeconds();
        if (send < 0) {
            state.SkipWithError("the send did not deliver everything");
            break;
        }
        state.SetIterationTime(send);
        sendTotal += send;
        copyTotal += copy;
    }
    state.counters["copy_ms"] =
        benchmark::Counter(copyTotal * 1000, benchmark::Counter::kAvgIterations);
    state.counters["send_ms"] =
        benchmark::Counter(sendTotal * 1000, benchmark::Counter::kAvgIterations);
    state.counters["send_per_copy"] = copyTotal > 0 ? sendTotal / copyTotal : 0;
}
BENCHMARK(BM_SendList)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
