#include "transmission/smtp_dialogue.h"

#include "common/date_format.h"
#include "common/tcp_stream.h"

namespace tessarin {
namespace {

std::vector<std::string_view> BodyLines(std::string_view body) {
    std::vector<std::string_view> lines;
    while (true) {
        const std::size_t end = body.find('\n');
        std::string_view line = body.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos) break;
        body.remove_prefix(end + 1);
    }
    return lines;
}

std::string Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1));
}

// One connection whose replies are read line by line.
class SmtpSocket {
  public:
    explicit SmtpSocket(std::chrono::milliseconds timeout) : stream_(timeout) {}

    bool Connect(const std::string& host, int port) { return stream_.Connect(host, port); }

    // A whole reply: its lines up to the one whose code is followed by a blank.
    bool ReadReply(std::string& reply) {
        reply.clear();
        while (true) {
            const std::size_t lineEnd = pending_.find('\n');
            if (lineEnd != std::string::npos) {
                const std::string line = pending_.substr(0, lineEnd + 1);
                pending_.erase(0, lineEnd + 1);
                reply += line;
                if (line.size() < 4 || line[3] != '-') return true;
                continue;
            }
            if (!stream_.Receive(pending_)) return false;
        }
    }

    bool Send(std::string_view bytes) { return stream_.Send(bytes); }
    int error() const { return stream_.error(); }
    const std::string& errorText() const { return stream_.errorText(); }

  private:
    TcpStream stream_;
    std::string pending_;
};

}  // namespace

void SetMailServer(MailToSend& mail, std::string_view server) {
    mail.host = Trimmed(server);
    const std::size_t colon = mail.host.rfind(':');
    if (colon == std::string::npos) return;
    const std::string port = mail.host.substr(colon + 1);
    if (port.empty() || port.find_first_not_of("0123456789") != std::string::npos) return;
    mail.port = std::stoi(port);
    mail.host.erase(colon);
}

std::string ComposeMailData(const MailToSend& mail) {
    std::string to;
    for (const std::string& recipient : mail.recipients)
        to += (to.empty() ? "<" : ", <") + Trimmed(recipient) + ">";
    std::string data = "X-Mailer:Tessarin " + mail.programVersion + "\r\n";
    data += "From: \"" + mail.senderName + "\" <" + mail.sender + ">\r\n";
    data += "To: " + to + "\r\n";
    data += "Subject:" + mail.subject + "\r\n";
    data += "Content-Type: text/plain; charset=\"ISO-8859-1\"\r\n\r\n";
    for (const std::string_view line : BodyLines(mail.body)) {
        if (line.starts_with('.')) data += '.';
        data.append(line);
        data += "\r\n";
    }
    return data + ".\r\n";
}

SmtpOutcome SendMail(const MailToSend& mail, std::chrono::milliseconds timeout,
                     const std::function<void(std::string_view)>& transcript) {
    SmtpOutcome outcome;
    const std::size_t at = mail.sender.find('@');
    if (at == std::string::npos) {
        outcome.reply = "the sender address " + mail.sender + " has no @";
        return outcome;
    }
    SmtpSocket socket(timeout);
    const auto socketFailure = [&] {
        outcome.socketError = socket.error();
        outcome.socketErrorText = socket.errorText();
        return outcome;
    };
    if (!socket.Connect(Trimmed(mail.host), mail.port)) return socketFailure();
    const auto say = [&](const std::string& text) {
        if (transcript) transcript(text);
        return socket.Send(text);
    };
    int counter = 0;
    std::size_t recipient = 0;
    std::string reply;
    while (true) {
        if (!socket.ReadReply(reply)) return socketFailure();
        if (transcript) transcript(reply);
        if (!reply.starts_with("220") && !reply.starts_with("250") && !reply.starts_with("354")) {
            outcome.sent = counter == 6;
            outcome.reply = Trimmed(reply);
            return outcome;
        }
        bool sent = true;
        switch (counter) {
            case 0:
                sent = say("HELO " + mail.sender.substr(0, at) + "\r\n");
                counter = 1;
                break;
            case 1:
                sent = say("MAIL FROM:<" + mail.sender + ">\r\n");
                counter = 2;
                break;
            case 2:
                // One RCPT TO for each recipient, then on.
                sent = say("RCPT TO:<" + Trimmed(mail.recipients.at(recipient)) + ">\r\n");
                if (++recipient >= mail.recipients.size()) counter = 3;
                break;
            case 3:
                sent = say("DATA\r\n");
                counter = 4;
                break;
            case 4:
                sent = say(ComposeMailData(mail));
                counter = 5;
                break;
            case 5:
                sent = say("QUIT\r\n");
                counter = 6;
                break;
            default:
                // The server confirmed QUIT with a good code: the mail went.
                outcome.sent = true;
                outcome.reply = Trimmed(reply);
                return outcome;
        }
        if (!sent) return socketFailure();
    }
}

std::string SmtpStatusText(const SmtpOutcome& outcome, std::string_view sentTo,
                           std::string_view recipient, const LocalDateTime& now) {
    if (outcome.socketError != 0) {
        return "Winsock Error number " + std::to_string(outcome.socketError) + ":" +
               outcome.socketErrorText;
    }
    const std::string when = FormatLongDate(now) + " \xC3\xA0 " + FormatTimeHourMinute(now) + " - ";
    if (outcome.sent) return when + std::string(sentTo) + " " + std::string(recipient);
    return when + "SMTP Error: " + outcome.reply;
}

}  // namespace tessarin
