#include "ui/qt_user_interaction.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QStringList>
#include <QThread>

namespace tessarin {
namespace {

QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString FromPath(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

std::optional<std::filesystem::path> ToPath(const QString& chosen) {
    if (chosen.isEmpty()) return std::nullopt;
    return std::filesystem::path(chosen.toStdString());
}

QMessageBox::Icon BoxIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Question:
            return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

// The shown text without a bracketed pattern list at its end.
QString WithoutPatterns(QString text) {
    const qsizetype open = text.lastIndexOf(QStringLiteral(" ("));
    if (text.endsWith(QLatin1Char(')')) && open >= 0) text.truncate(open);
    return text;
}

// Boxes belong to the application's thread: a question or message that comes from an exchange
// running beside the event loop is shown there, and the exchange waits for its answer.
template <typename Show>
void OnApplicationThread(Show show) {
    if (QThread::currentThread() == qApp->thread()) {
        show();
    } else {
        QMetaObject::invokeMethod(qApp, show, Qt::BlockingQueuedConnection);
    }
}

}  // namespace

QString MessageBoxTitle() {
    return QStringLiteral("Tessarin " TESSARIN_VERSION);
}

QString DialogNameFilter(std::string_view filter) {
    const QStringList parts = FromUtf8(filter).split(QLatin1Char('|'));
    QStringList entries;
    for (qsizetype index = 0; index < parts.size(); index += 2) {
        if (index + 1 >= parts.size()) {
            entries << parts[index];
            break;
        }
        QString patterns = parts[index + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        entries << WithoutPatterns(parts[index]) + QStringLiteral(" (") + patterns +
                       QLatin1Char(')');
    }
    return entries.join(QStringLiteral(";;"));
}

Answer QtUserInteraction::Ask(std::string_view text, bool withCancel, MessageIcon icon) {
    Answer answer = Answer::No;
    OnApplicationThread([&] { answer = AskHere(text, withCancel, icon); });
    return answer;
}

Answer QtUserInteraction::AskHere(std::string_view text, bool withCancel, MessageIcon icon) {
    QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
    if (withCancel) buttons |= QMessageBox::Cancel;
    QMessageBox box(BoxIcon(icon), MessageBoxTitle(), FromUtf8(text), buttons, parent_);
    box.setDefaultButton(QMessageBox::Yes);
    switch (box.exec()) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            // Closing the box answers as its last button does.
            return withCancel ? Answer::Cancel : Answer::No;
    }
}

void QtUserInteraction::Tell(std::string_view text, MessageIcon icon) {
    OnApplicationThread([&] {
        QMessageBox box(BoxIcon(icon), MessageBoxTitle(), FromUtf8(text), QMessageBox::Ok, parent_);
        box.exec();
    });
}

std::optional<std::filesystem::path> QtUserInteraction::ChooseFileToOpen(
    std::string_view title, std::string_view filter, const std::filesystem::path& start) {
    return ToPath(QFileDialog::getOpenFileName(parent_, FromUtf8(title), FromPath(start),
                                               DialogNameFilter(filter)));
}

std::optional<std::filesystem::path> QtUserInteraction::ChooseFileToSave(
    std::string_view title, std::string_view filter, const std::filesystem::path& start,
    std::string_view suggestedName) {
    const std::filesystem::path proposed = suggestedName.empty() ? start : start / suggestedName;
    return ToPath(QFileDialog::getSaveFileName(parent_, FromUtf8(title), FromPath(proposed),
                                               DialogNameFilter(filter)));
}

std::optional<std::filesystem::path> QtUserInteraction::ChooseFolder(
    std::string_view prompt, const std::filesystem::path& start) {
    return ToPath(QFileDialog::getExistingDirectory(parent_, FromUtf8(prompt), FromPath(start)));
}

void QtUserInteraction::Beep() {
    OnApplicationThread([] { QApplication::beep(); });
}

}  // namespace tessarin
