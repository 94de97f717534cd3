#include "transmission/smtp_dialogue.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "common/date_format.h"

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

// One connection with a deadline on every read and write.
class SmtpSocket {
  public:
    explicit SmtpSocket(std::chrono::milliseconds timeout) : timeout_(timeout) {}
    ~SmtpSocket() {
        if (fd_ >= 0) close(fd_);
    }

    bool Connect(const std::string& host, int port) {
        addrinfo hints{};
        hints.ai_socktype = SOCK_STREAM;
        addrinfo* found = nullptr;
        const int status = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
        if (status != 0) return Fail(EHOSTUNREACH, gai_strerror(status));
        for (addrinfo* address = found; address != nullptr; address = address->ai_next) {
            fd_ = socket(address->ai_family, address->ai_socktype, address->ai_protocol);
            if (fd_ < 0) continue;
            if (connect(fd_, address->ai_addr, address->ai_addrlen) == 0) break;
            error_ = errno;
            close(fd_);
            fd_ = -1;
        }
        freeaddrinfo(found);
        if (fd_ < 0) return Fail(error_ != 0 ? error_ : ECONNREFUSED);
        return true;
    }

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
            if (!Wait(POLLIN)) return false;
            char buffer[4096];
            const ssize_t got = recv(fd_, buffer, sizeof buffer, 0);
            if (got < 0) return Fail(errno);
            if (got == 0) return Fail(ECONNRESET);  // the server hung up
            pending_.append(buffer, static_cast<std::size_t>(got));
        }
    }

    bool Send(std::string_view bytes) {
        while (!bytes.empty()) {
            if (!Wait(POLLOUT)) return false;
            const ssize_t sent = send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (sent < 0) return Fail(errno);
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return true;
    }

    int error() const { return error_; }
    const std::string& errorText() const { return errorText_; }

  private:
    bool Wait(short events) {
        pollfd watched{fd_, events, 0};
        const int ready = poll(&watched, 1, static_cast<int>(timeout_.count()));
        if (ready < 0) return Fail(errno);
        if (ready == 0) return Fail(ETIMEDOUT);
        return true;
    }

    bool Fail(int error, std::string text = "") {
        error_ = error;
        errorText_ = text.empty() ? std::generic_category().message(error) : std::move(text);
        return false;
    }

    std::chrono::milliseconds timeout_;
    int fd_ = -1;
    std::string pending_;
    int error_ = 0;
    std::string errorText_;
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
