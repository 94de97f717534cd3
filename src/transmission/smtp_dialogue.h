#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/clock.h"

namespace tessarin {

// The mail window's own SMTP client: one connection, and a state counter from 0 to 6 that
// answers each server reply with the next command. A reply beginning "220", "250" or "354"
// moves the dialogue on (HELO, MAIL FROM, RCPT TO, DATA, the message, QUIT); any other reply
// ends it, and is the sign of success only once QUIT has gone. Every line on the wire ends in
// CR LF and body lines that begin with "." are dot-stuffed.

struct MailToSend {
    std::string host;  // a host name or address
    int port = 25;
    std::string sender;      // MAIL FROM and the From header
    std::string senderName;  // the From header's name
    std::vector<std::string> recipients;
    std::string subject;
    std::string body;  // lines separated by CR LF or LF
    std::string programVersion = TESSARIN_VERSION;
};

// Host and port from a server name that may end in ":port" (else the port stays as it is).
void SetMailServer(MailToSend& mail, std::string_view server);

// The DATA of a mail: the header (X-Mailer, From, To, Subject, Content-Type), a blank line,
// the body's lines, then the line ".". Each line ends in CR LF; a line that begins with "."
// gets a second one.
std::string ComposeMailData(const MailToSend& mail);

struct SmtpOutcome {
    bool sent = false;
    std::string reply;    // the reply that ended the dialogue, without its line end
    int socketError = 0;  // an errno when the connection failed or a reply did not come
    std::string socketErrorText;
};

// The whole dialogue. Each reply waits at most `timeout`; a server that hangs up or stays
// silent ends the dialogue with a socket error, never a hang. transcript, when given,
// receives what each side says.
SmtpOutcome SendMail(const MailToSend& mail, std::chrono::milliseconds timeout,
                     const std::function<void(std::string_view)>& transcript = {});

// The status panel after a send: "<long date> à <hh:mm> - <sentTo> <recipient>" when the
// mail went, "<long date> à <hh:mm> - SMTP Error: <reply>" when the server refused it, and
// "Winsock Error number <n>:<description>" when the connection failed.
std::string SmtpStatusText(const SmtpOutcome& outcome, std::string_view sentTo,
                           std::string_view recipient, const LocalDateTime& now);

}  // namespace tessarin
