#pragma once

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>
#include <memory>

#include "config/story_section.h"
#include "editing/panel_session.h"
#include "editing/story_forms.h"
#include "ui/find_control.h"
#include "ui/story_panel.h"
#include "ui/styled_text_bridge.h"

namespace tessarin::testing {

// Reads an empty story section and the news services given into the session's configuration,
// as the start does, with the application folder made.
inline void ReadNewsServices(PanelSession& bench, const std::string& services) {
    std::filesystem::create_directories(bench.session.paths.appDir);
    XmlDocument story;
    story.LoadBytes("<Story/>");
    XmlDocument read;
    read.LoadBytes(services);
    ReadStoryAndNewsServices(story.DocumentElement(), read.DocumentElement(),
                             bench.session.configuration, bench.session.window);
}

// A story panel on a session with three forms: "Brief" (boxes 0, 1 and 6 and the signature;
// box 0 takes 3 to 5 characters), "Caps" (boxes 0 to 3 and 6; box 1 all caps) and "Main"
// (box 6 alone). Brief is in force, the author is Jane Doe (JD), shown and active.
struct StoryPanelBench {
    StoryPanelBench() {
        ReadNewsServices(bench, "<NewsServices/>");
        auto& forms = bench.session.configuration.forms;
        forms = {{"Brief", "1270", "", 0, -1, {}},
                 {"Caps", "12347", "2", 0, -1, {}},
                 {"Main", "7", "", 0, -1, {}}};
        forms[0].characterLimits[0] = CharacterLimit{"3", 5};
        bench.session.configuration.identity = {"Jane Doe", "", "", "JD"};
        for (const StoryForm& form : forms)
            bench.session.window.List("lstStoryTypes").items.push_back({form.name, {}});
        ChooseForm(bench.session, 0);
        panel = std::make_unique<StoryPanel>(bench.session, nullptr);
        panel->show();
        QApplication::setActiveWindow(panel.get());
    }

    template <typename Widget>
    Widget& Find(const QString& name) {
        return *testing::Find<Widget>(*panel, name.toUtf8().constData());
    }
    QTextEdit& Box(int box) { return Find<QTextEdit>(QStringLiteral("TextBox%1").arg(box)); }
    // The box as the core holds it.
    QString Core(int box) {
        return QString::fromStdU16String(bench.session.story.boxes[box].Text());
    }
    // The box as the core holds it, when the panel shows the same.
    QString Text(int box) {
        const QString held = Core(box);
        return Box(box).toPlainText() ==
                       QString(held).replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                   ? held
                   : QStringLiteral("(the panel shows something else)");
    }
    // What the box's document holds, read back as styled text.
    StyledText Shown(int box) { return StyledTextBridge(*Box(box).document()).Read(); }
    QString Label(const QString& name) { return Find<QLabel>(name).text(); }
    bool Shown(const QString& name) { return Find<QWidget>(name).isVisible(); }
    // Types at the end of a box.
    void Type(int box, const QString& keys) {
        Box(box).setFocus();
        Box(box).moveCursor(QTextCursor::End);
        QTest::keyClicks(&Box(box), keys);
    }
    void Click(const char* name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }

    // Puts the caret (and the selection from anchor) into a box that has the focus.
    void Select(int box, int anchor, int position) {
        QTextEdit& edit = Box(box);
        edit.setFocus();
        QTextCursor cursor = edit.textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        edit.setTextCursor(cursor);
    }

    PanelSession bench;
    std::unique_ptr<StoryPanel> panel;
};

}  // namespace tessarin::testing
