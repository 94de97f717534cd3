#include <QtTest>

#include "common/scoped_environment.h"
#include "support/demo_launch.h"
#include "ui/editor_driver.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using testing::Editor;
using testing::ReadBytes;
using testing::ScopedEnvironment;
using testing::TempDir;

class DemoNewsroomTest : public QObject {
    Q_OBJECT
  private slots:
    // The demo newsroom as its launcher starts the editor on a machine whose locale is C: each
    // story of the recent-files menu opens, takes a line and is saved again.
    void eachStoryIsEditedAndSavedAgainInTheCLocale() {
        TempDir folder;
        const std::filesystem::path app = folder / "app";
        testing::DemoLaunch launch = testing::LaunchDemo(folder, app);
        QCOMPARE(launch.exitStatus, 0);
        ScopedEnvironment locale("LC_ALL", "C");
        ScopedEnvironment shortDate("TESSARIN_SHORT_DATE",
                                    launch.environment["TESSARIN_SHORT_DATE"]);
        ScopedEnvironment longDate("TESSARIN_LONG_DATE", launch.environment["TESSARIN_LONG_DATE"]);

        Editor editor(app);
        QVERIFY(editor.StartAndShow());
        for (const char* row : {"mnuFileMRU1", "mnuFileMRU2", "mnuFileMRU3"}) {
            editor.Trigger(row);
            const std::filesystem::path story = editor.window.Session().StoryPath();
            QVERIFY2(!story.empty(), row);
            editor.Type(" Updated at noon.");
            editor.Trigger("Save");
            QVERIFY2(!editor.window.Session().storyModified, story.c_str());
            QVERIFY2(ReadBytes(story).find("Updated at noon.") != std::string::npos, story.c_str());
        }
        QCOMPARE(editor.user.messages, std::vector<std::string>{});
    }
};

TESSARIN_UI_TEST(DemoNewsroomTest);

}  // namespace
}  // namespace tessarin

#include "demo_newsroom_test.moc"
