#pragma once

#include <QApplication>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>
#include <memory>

#include "config/story_section.h"
#include "editing/panel_session.h"
#include "editing/story_forms.h"
#include "ui/find_control.h"
#include "ui/story_panel.h"

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

// A story panel on a panel session, shown and active once the session's forms are set:
// derived benches set them up, then call Show().
struct StoryPanelBench {
    // Lists the session's forms, puts the first in force and shows the panel.
    void Show() {
        for (const StoryForm& form : bench.session.configuration.forms)
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
