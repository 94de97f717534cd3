// tessarin [--app-dir DIR] [--screenshot FILE [--view VIEW] [--story STORY]] [CONFIG] | --help
//
// The desktop story editor. CONFIG is a configuration document installed over the
// application directory's Tessarin.xml before anything is read. --screenshot FILE starts as
// usual and, once the main window shows the new story after its first activation (or the
// story STORY, opened then), writes the picture of the main window, or of the window that
// the view opens, to the PNG FILE and ends; such a run asks nothing. --help prints the
// options without needing a display.

#include <QAction>
#include <QApplication>
#include <QStringList>
#include <QTimer>
#include <cstdio>
#include <optional>
#include <string_view>

#include "app/app_paths.h"
#include "app/user_interaction.h"
#include "story/file_operations.h"
#include "ui/main_window.h"

namespace {

constexpr int kExitDone = 0;
constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;
constexpr const char* kUsage =
    "usage: tessarin [--app-dir DIR] [--screenshot FILE [--view VIEW] [--story STORY]] "
    "[CONFIG]\n";
constexpr const char* kOptions =
    "\nThe desktop story editor of a newsroom.\n\n"
    "  --app-dir DIR      the application directory, which holds Tessarin.xml and the\n"
    "                     preferences (default: $TESSARIN_HOME, else the program's directory\n"
    "                     when it holds a writable Tessarin.xml, else\n"
    "                     $XDG_DATA_HOME/tessarin)\n"
    "  --screenshot FILE  start unattended, write the main window's picture to the PNG\n"
    "                     FILE once it shows the new story, and end\n"
    "  --view VIEW        the view that the screenshot shows: informations, story, images,\n"
    "                     teleprompter or tipoftheday (the last two picture their own window)\n"
    "  --story STORY      the story that the screenshot shows, opened at start\n"
    "  CONFIG             a configuration document installed over Tessarin.xml first\n"
    "  --help             print this help and end\n";

// Asking for help needs no display: it is answered before the application starts.
bool AsksForHelp(int argc, char** argv) {
    for (int index = 1; index < argc; ++index) {
        const std::string_view argument = argv[index];
        if (argument == "--help" || argument == "-h") return true;
    }
    return false;
}

// A view that a screenshot shows: the menu entry that shows it, and the window it opens
// (empty: the main window's own view).
struct ScreenshotView {
    QString menuEntry;
    QString window;
};

struct CommandLine {
    std::optional<std::filesystem::path> appDir;
    QString screenshot;
    ScreenshotView view;  // empty: as the start leaves it
    std::filesystem::path story;
    std::string configuration;
};

// The menu entry that shows a view named on the command line.
std::optional<ScreenshotView> ViewMenuEntry(const QString& name) {
    if (name == QLatin1String("informations"))
        return ScreenshotView{QStringLiteral("mnuDisplayMetadata"), {}};
    if (name == QLatin1String("story"))
        return ScreenshotView{QStringLiteral("mnuDisplayStory"), {}};
    if (name == QLatin1String("images"))
        return ScreenshotView{QStringLiteral("mnuDisplayImages"), {}};
    if (name == QLatin1String("teleprompter"))
        return ScreenshotView{QStringLiteral("mnuDisplayTeleprompter"),
                              QStringLiteral("frmTeleprompter")};
    if (name == QLatin1String("tipoftheday"))
        return ScreenshotView{QStringLiteral("mnuTipOfTheDay"), QStringLiteral("frmTipOfTheDay")};
    return std::nullopt;
}

// The arguments after the program's name, once Qt has taken its own.
std::optional<CommandLine> ParseCommandLine(const QStringList& arguments) {
    CommandLine parsed;
    bool haveConfiguration = false;
    for (qsizetype index = 1; index < arguments.size(); ++index) {
        const QString& argument = arguments[index];
        const bool takesValue =
            argument == QLatin1String("--app-dir") || argument == QLatin1String("--screenshot") ||
            argument == QLatin1String("--view") || argument == QLatin1String("--story");
        if (takesValue) {
            if (++index >= arguments.size()) return std::nullopt;
            if (argument == QLatin1String("--app-dir")) {
                parsed.appDir = arguments[index].toStdString();
            } else if (argument == QLatin1String("--screenshot")) {
                parsed.screenshot = arguments[index];
            } else if (argument == QLatin1String("--story")) {
                parsed.story = arguments[index].toStdString();
            } else if (const auto entry = ViewMenuEntry(arguments[index])) {
                parsed.view = *entry;
            } else {
                return std::nullopt;
            }
        } else if (!argument.startsWith(QLatin1Char('-')) && !haveConfiguration) {
            parsed.configuration = argument.toStdString();
            haveConfiguration = true;
        } else {
            return std::nullopt;
        }
    }
    return parsed;
}

// Once the first activation is done, the story is opened and the chosen view is shown as its
// menu entry would show it, the picture of the window it shows goes to file and the program
// ends.
void TakeScreenshotOnceShown(tessarin::MainWindow& window, const QString& file,
                             const ScreenshotView& view, const std::filesystem::path& story) {
    QObject::connect(
        &window, &tessarin::MainWindow::firstActivationDone, &window, [&window, file, view, story] {
            if (!story.empty()) {
                tessarin::OpenStoryFile(window.Session(), story);
                window.RefreshAll();
            }
            if (!view.menuEntry.isEmpty()) {
                if (auto* entry = window.findChild<QAction*>(view.menuEntry)) entry->trigger();
            }
            QTimer::singleShot(0, &window, [&window, file, view] {
                QWidget* pictured = &window;
                if (!view.window.isEmpty()) pictured = window.findChild<QWidget*>(view.window);
                const bool saved = pictured != nullptr && pictured->grab().save(file, "PNG");
                if (!saved)
                    std::fprintf(stderr, "tessarin: cannot write %s\n",
                                 file.toLocal8Bit().constData());
                QApplication::exit(saved ? kExitDone : kExitFailed);
            });
        });
}

// What an unattended run was asked and told, on standard error.
void ReportTold(const tessarin::ScriptedInteraction& user) {
    for (const auto* texts : {&user.questions, &user.messages}) {
        for (const std::string& text : *texts)
            std::fprintf(stderr, "%s\n", text.c_str());
    }
}

int Run(const CommandLine& commandLine, tessarin::UserInteraction* user) {
    const std::filesystem::path appDir = tessarin::ResolveAppDir(
        commandLine.appDir, QCoreApplication::applicationFilePath().toStdString());
    tessarin::MainWindow window(tessarin::MakeAppPaths(appDir), user);
    if (const std::optional<int> status = window.Start(commandLine.configuration)) return *status;
    if (!commandLine.screenshot.isEmpty())
        TakeScreenshotOnceShown(window, commandLine.screenshot, commandLine.view,
                                commandLine.story);
    window.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    if (AsksForHelp(argc, argv)) {
        std::fputs(kUsage, stdout);
        std::fputs(kOptions, stdout);
        return kExitDone;
    }
    QApplication application(argc, argv);
    const std::optional<CommandLine> commandLine = ParseCommandLine(application.arguments());
    if (!commandLine) {
        std::fputs(kUsage, stderr);
        return kExitUsage;
    }
    if (commandLine->screenshot.isEmpty()) return Run(*commandLine, nullptr);
    // A screenshot run waits for nobody: questions take "Yes", and what the user would have
    // been asked or told goes to standard error.
    tessarin::ScriptedInteraction unattended;
    const int status = Run(*commandLine, &unattended);
    ReportTold(unattended);
    return status;
}
