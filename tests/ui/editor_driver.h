#pragma once

#include <QAction>
#include <QSignalSpy>
#include <QTextEdit>
#include <QtTest>
#include <string>
#include <string_view>

#include "app/user_interaction.h"
#include "support/temp_dir.h"
#include "ui/main_window.h"

namespace tessarin::testing {

// A newsroom with one form that holds the main box and a client for the title; attributes and
// entries go into its Interface element, messages into its Messages element.
inline std::string Newsroom(std::string_view attributes = "", std::string_view entries = "",
                            std::string_view messages = "") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<Tessarin Version=\"3.2\" StoriesEncoding=\"UTF-8\" Client=\"Valley Courier\">"
           "<FTPTransmission><FTPServer IPNumber=\"ftp.example.org\" User=\"desk\"/>"
           "</FTPTransmission>"
           "<Metadata><Forms><Form Name=\"Brief\" TextBoxes=\"7\"/></Forms></Metadata>"
           "<Story/><Publications><Publication Name=\"Morning Herald\"/></Publications>"
           "<Interface " +
           std::string(attributes) + ">" + std::string(entries) + "</Interface><Messages>" +
           std::string(messages) + "</Messages></Tessarin>\n";
}

// The main window on an application directory, with scripted answers, driven as a user
// would: menu entries and buttons by their names, typing into the story panel's boxes.
struct Editor {
    explicit Editor(const TempDir& dir) : Editor(dir.path()) {}
    // On a folder given the newsroom's configuration and, when not empty, its preferences.
    Editor(const TempDir& dir, std::string_view configuration, std::string_view preferences = "")
        : Editor(Installed(dir, configuration, preferences)) {}
    explicit Editor(const std::filesystem::path& appDir) : window(MakeAppPaths(appDir), &user) {}

    // Starts the window and waits for its first activation.
    bool StartAndShow() {
        if (window.Start("")) return false;
        QSignalSpy activated(&window, &MainWindow::firstActivationDone);
        window.show();
        return activated.wait(5000);
    }

    template <typename Widget = QWidget>
    Widget* Find(const char* name) {
        return window.findChild<Widget*>(QString::fromUtf8(name));
    }
    QAction* Action(const char* name) { return Find<QAction>(name); }
    void Trigger(const char* name) { Action(name)->trigger(); }
    QTextEdit* Box(int box) { return Find<QTextEdit>(("TextBox" + std::to_string(box)).c_str()); }

    // Types at the end of a box of the story panel (the main box unless told).
    void Type(const char* text, int box = 6) {
        QTextEdit* edit = Box(box);
        edit->setFocus();
        edit->moveCursor(QTextCursor::End);
        QTest::keyClicks(edit, text);
    }

    // The main box as the session holds it and as the story panel shows it, when they agree.
    std::u16string MainBox() {
        const std::u16string held = window.Session().story.boxes[6].Text();
        const QString shown = Box(6)->toPlainText();
        return shown.toStdU16String() == held ? held : u"(the panel shows something else)";
    }

    static std::filesystem::path Installed(const TempDir& dir, std::string_view configuration,
                                           std::string_view preferences) {
        dir.Write("Tessarin.xml", configuration);
        if (!preferences.empty()) dir.Write("Tessarin.ini", preferences);
        return dir.path();
    }

    ScriptedInteraction user{Answer::Yes};
    MainWindow window;
};

}  // namespace tessarin::testing
