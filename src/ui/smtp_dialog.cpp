#include "ui/smtp_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>
#include <chrono>

#include "common/xml_document.h"
#include "story/story_plain_text.h"
#include "transmission/mail_attachments.h"
#include "transmission/smtp_dialogue.h"
#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr std::chrono::seconds kReplyTimeout{30};

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
}

}  // namespace

SmtpDialog::SmtpDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      server_(Named(new QLineEdit, "txtServer")),
      sender_(Named(new QLineEdit, "txtSender")),
      recipients_(Named(new QListWidget, "lstRecipients")),
      subject_(Named(new QLineEdit, "txtSubject")),
      message_(Named(new QPlainTextEdit, "txtMessage")),
      currentStory_(Named(new QCheckBox, "chkCurrentStory")),
      xmlStory_(Named(new QCheckBox, "chkXMLStory")),
      images_(Named(new QCheckBox, "chkImages")),
      debug_(Named(new QPlainTextEdit, "txtDebug")),
      send_(Named(new QPushButton(tr("Send")), "cmdSend")),
      status_(Named(new QStatusBar, "StatusBarSMTP")) {
    setObjectName("frmSMTP");
    setWindowTitle(ConfiguredTitle(session, "ToolsSMTP", "Send by mail"));
    const SmtpTransmissionSettings& smtp = session.configuration.smtpTransmission;
    server_->setText(QString::fromStdString(smtp.SMTPServerName));
    sender_->setText(QString::fromStdString(session.configuration.identity.email));
    for (const SmtpRecipient& recipient : smtp.recipients)
        recipients_->addItem(QString::fromStdString(recipient.address));
    if (recipients_->count() > 0) recipients_->setCurrentRow(0);
    currentStory_->setText(ConfiguredCaption(session, "ToolsSMTPCurrentStory", "Current story"));
    xmlStory_->setText(ConfiguredCaption(session, "ToolsSMTPXMLStory", "XML story"));
    images_->setText(ConfiguredCaption(session, "ToolsSMTPImages", "Images"));
    currentStory_->setEnabled(!session.storyFileName.empty());
    xmlStory_->setEnabled(false);
    images_->setEnabled(false);
    debug_->setReadOnly(true);
    debug_->setVisible(smtp.Debug);
    send_->setEnabled(false);

    auto* form = new QFormLayout;
    form->addRow(ConfiguredCaption(session, "ToolsSMTPLabelServer", "Server"), server_);
    form->addRow(ConfiguredCaption(session, "ToolsSMTPLabelSender", "Sender"), sender_);
    form->addRow(ConfiguredCaption(session, "ToolsSMTPLabelRecipient", "Recipient"), recipients_);
    form->addRow(ConfiguredCaption(session, "ToolsSMTPLabelSubject", "Subject"), subject_);
    form->addRow(ConfiguredCaption(session, "ToolsSMTPLabelMessage", "Message"), message_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(currentStory_);
    layout->addWidget(xmlStory_);
    layout->addWidget(images_);
    layout->addWidget(debug_);
    layout->addWidget(send_);
    layout->addWidget(status_);

    connect(message_, &QPlainTextEdit::textChanged, this, [this] {
        send_->setEnabled(!worker_.joinable() && !message_->toPlainText().isEmpty());
    });
    connect(currentStory_, &QCheckBox::toggled, this, &SmtpDialog::ChooseCurrentStory);
    connect(send_, &QPushButton::clicked, this, &SmtpDialog::Send);
}

SmtpDialog::~SmtpDialog() {
    if (worker_.joinable()) worker_.join();
}

void SmtpDialog::ChooseCurrentStory(bool on) {
    subject_->setReadOnly(on);
    message_->setReadOnly(on);
    xmlStory_->setEnabled(on);
    images_->setEnabled(on);
    if (!on) {
        subject_->clear();
        message_->clear();
        xmlStory_->setChecked(false);
        images_->setChecked(false);
        return;
    }
    subject_->setText(QString::fromStdString(session_.storyFileName));
    XmlDocument story;
    if (story.LoadFile(session_.StoryPath()))
        message_->setPlainText(
            QString::fromStdString(StoryPlainText(story.DocumentElement())).replace("\r\n", "\n"));
}

void SmtpDialog::Send() {
    send_->setEnabled(false);
    status_->clearMessage();
    debug_->clear();
    MailToSend mail;
    SetMailServer(mail, server_->text().toStdString());
    mail.sender = sender_->text().trimmed().toStdString();
    mail.senderName = session_.configuration.identity.author;
    if (recipients_->currentItem() != nullptr)
        mail.recipients.push_back(recipients_->currentItem()->text().toStdString());
    mail.subject = subject_->text().toStdString();
    mail.body = message_->toPlainText().toStdString();
    if (currentStory_->isChecked()) {
        const MailAttachments attachments = StoryMailAttachments(
            session_.StoryPath(), xmlStory_->isChecked(), images_->isChecked());
        if (!attachments.parseError.empty())
            status_->showMessage(QString::fromStdString(attachments.parseError));
        mail.body = MailBodyWith(mail.body, attachments.text);
    }
    if (mail.recipients.empty()) {
        status_->showMessage(
            ConfiguredMessage(session_, "MissingDestination", "Missing destination"));
        send_->setEnabled(true);
        return;
    }
    const std::string sentTo = ToUtf8(ConfiguredMessage(session_, "SentTo", "Sent to"));
    const bool showLines = !images_->isChecked();
    if (worker_.joinable()) worker_.join();
    worker_ = std::thread([this, mail, sentTo, showLines] {
        std::string transcript;
        const SmtpOutcome outcome = SendMail(mail, kReplyTimeout, [&](std::string_view said) {
            if (showLines || said.size() < 1000) transcript.append(said);
        });
        const QString status =
            QString::fromStdString(SmtpStatusText(outcome, sentTo, mail.recipients.front(), Now()));
        QMetaObject::invokeMethod(
            this,
            [this, status, text = QString::fromStdString(transcript)] {
                ShowOutcome(status, text);
            },
            Qt::QueuedConnection);
    });
}

void SmtpDialog::ShowOutcome(const QString& status, const QString& transcript) {
    if (worker_.joinable()) worker_.join();
    debug_->setPlainText(transcript);
    status_->showMessage(status);
    send_->setEnabled(!message_->toPlainText().isEmpty());
    emit sendingFinished();
}

}  // namespace tessarin
