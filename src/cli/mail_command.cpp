#include <chrono>
#include <filesystem>
#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "common/xml_document.h"
#include "story/story_plain_text.h"
#include "transmission/mail_attachments.h"
#include "transmission/smtp_dialogue.h"

namespace fs = std::filesystem;

namespace tessarin::cli {
namespace {

constexpr const char* kMailUsage =
    "tessarin-cli: usage: mail send [--story STORY [--xml] [--attachments]] [--to ADDRESS]... "
    "[--subject TEXT] [--server HOST] [--port N] [--verbose] [TEXT]\n";

// A reply that does not come within this time ends the dialogue.
constexpr std::chrono::seconds kReplyTimeout{30};

struct MailRequest {
    std::optional<fs::path> story;
    bool xml = false;
    bool attachments = false;
    std::vector<std::string> to;
    std::optional<std::string> subject, server;
    std::optional<int> port;
    bool verbose = false;
    std::string text;
};

std::optional<MailRequest> ParseMail(const Arguments& arguments) {
    if (arguments.empty() || arguments[0] != "send") return std::nullopt;
    MailRequest request;
    bool textGiven = false;
    for (std::size_t index = 1; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        const bool hasValue = index + 1 < arguments.size();
        if (argument == "--xml") {
            request.xml = true;
        } else if (argument == "--attachments") {
            request.attachments = true;
        } else if (argument == "--verbose") {
            request.verbose = true;
        } else if (argument == "--story" && hasValue) {
            request.story = arguments[++index];
        } else if (argument == "--to" && hasValue) {
            request.to.push_back(arguments[++index]);
        } else if (argument == "--subject" && hasValue) {
            request.subject = arguments[++index];
        } else if (argument == "--server" && hasValue) {
            request.server = arguments[++index];
        } else if (argument == "--port" && hasValue) {
            try {
                request.port = std::stoi(arguments[++index]);
            } catch (const std::exception&) {
                return std::nullopt;
            }
        } else if (!argument.starts_with("--") && !textGiven) {
            request.text = argument;
            textGiven = true;
        } else {
            return std::nullopt;
        }
    }
    if ((request.xml || request.attachments) && !request.story) return std::nullopt;
    return request;
}

}  // namespace

int RunMailCommand(CliContext& context, const Arguments& arguments) {
    const std::optional<MailRequest> request = ParseMail(arguments);
    if (!request) {
        context.err << kMailUsage;
        return kExitUsage;
    }
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return kExitRefused;
    const Configuration& configuration = session.configuration;
    MailToSend mail;
    SetMailServer(mail, request->server.value_or(configuration.smtpTransmission.SMTPServerName));
    if (request->port) mail.port = *request->port;
    mail.sender = configuration.identity.email;
    mail.senderName = configuration.identity.author;
    mail.recipients = request->to;
    if (mail.recipients.empty()) {
        for (const SmtpRecipient& recipient : configuration.smtpTransmission.recipients)
            mail.recipients.push_back(recipient.address);
    }
    mail.subject = request->subject.value_or("");
    mail.body = request->text;
    if (request->story) {
        XmlDocument story;
        if (!story.LoadFile(*request->story)) {
            context.err << "Cannot read the story " << request->story->string() << '\n';
            return kExitRefused;
        }
        mail.subject = request->story->filename().string();
        mail.body = StoryPlainText(story.DocumentElement());
        const MailAttachments attachments =
            StoryMailAttachments(*request->story, request->xml, request->attachments);
        if (!attachments.parseError.empty()) context.err << attachments.parseError << '\n';
        mail.body = MailBodyWith(mail.body, attachments.text);
    }
    if (mail.recipients.empty() || mail.body.empty()) {
        context.err << "A mail needs a recipient and a message\n";
        return kExitRefused;
    }
    const SmtpOutcome outcome = SendMail(mail, kReplyTimeout, [&](std::string_view said) {
        if (request->verbose) context.err << said;
    });
    const std::string sentTo = session.Message("SentTo");
    context.err << SmtpStatusText(outcome, sentTo.empty() ? "Sent to" : sentTo,
                                  mail.recipients.front(), Now())
                << '\n';
    return outcome.sent ? kExitDone : kExitRefused;
}

}  // namespace tessarin::cli
