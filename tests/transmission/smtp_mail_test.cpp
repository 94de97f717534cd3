#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "common/scoped_environment.h"
#include "support/local_server.h"
#include "support/temp_dir.h"
#include "transmission/mail_attachments.h"
#include "transmission/smtp_dialogue.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

using testing::LocalSmtpServer;
using testing::ReadBytes;
using testing::RunPython;
using testing::ScopedEnvironment;
using testing::TempDir;

using namespace std::chrono_literals;

// Decodes every uuencoded file in the body of a received mail with Python's own email and
// uu modules into a folder, and prints the body's text lines before the first attachment.
constexpr const char* kDecodeMail = R"(
import email, io, os, sys, uu, warnings
warnings.simplefilter("ignore")
message = email.message_from_bytes(open(sys.argv[1], "rb").read())
body = message.get_payload(decode=True).decode("latin-1").replace("\r\n", "\n")
head, _, rest = body.partition("begin ")
sys.stdout.write(head)
blocks = ("begin " + rest).split("begin ")[1:] if rest else []
for block in blocks:
    text = "begin " + block[:block.index("\nend\n") + 5]
    name = text.split("\n", 1)[0].split(" ", 2)[2]
    uu.decode(io.BytesIO(text.encode("latin-1")), os.path.join(sys.argv[2], name), quiet=True)
)";

std::string Escaped(std::string path) {
    for (std::size_t at = path.find(' '); at != std::string::npos; at = path.find(' '))
        path.replace(at, 1, "%20");
    return path;
}

// A mail from Ann to the desk through the local server at port.
MailToSend Mail(int port, std::string body) {
    return MailToSend{.host = "127.0.0.1",
                      .port = port,
                      .sender = "ann@example.org",
                      .senderName = "Ann Lee",
                      .recipients = {"desk@example.org"},
                      .subject = "Fire",
                      .body = std::move(body),
                      .programVersion = "1.2.3"};
}

TEST(MailData, HeaderLinesAndBodyEndInCrLfAndLeadingDotsAreStuffed) {
    MailToSend mail = Mail(25, "one\r\n.\r\n..two\nthree");
    mail.recipients = {" desk@example.org "};
    EXPECT_EQ(ComposeMailData(mail),
              "X-Mailer:Tessarin 1.2.3\r\nFrom: \"Ann Lee\" <ann@example.org>\r\n"
              "To: <desk@example.org>\r\nSubject:Fire\r\n"
              "Content-Type: text/plain; charset=\"ISO-8859-1\"\r\n\r\n"
              "one\r\n..\r\n...two\r\nthree\r\n.\r\n");
}

// A story with two pictures goes with its XML and both pictures; what arrives decodes back
// to the same bytes, and body lines beginning with "." arrive as they were written.
TEST(SmtpSend, AStoryAndItsPicturesArriveWhole) {
    ScopedEnvironment now{"TESSARIN_NOW", "2024-03-05T09:07:30"};
    ScopedEnvironment longDate{"TESSARIN_LONG_DATE", "d MMMM yyyy"};
    LocalSmtpServer server;
    TempDir folder;
    std::string jpeg(70'000, '\0');
    for (std::size_t i = 0; i < jpeg.size(); ++i)
        jpeg[i] = static_cast<char>(i * 31 % 256);
    const fs::path one = folder.Write("pics/harbour fire.jpg", jpeg);
    const fs::path two = folder.Write("pics/crew.jpg", jpeg.substr(0, 45));
    const fs::path story = folder.Write(
        "fire.xml",
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<Story>\r\n<Body>Fire</Body>"
        "\r\n<Images><ImageBag><Image href=\"file://" +
            Escaped(one.string()) + "\"/></ImageBag><ImageBag><Image href=\"file://" +
            two.string() +
            "\"/></ImageBag><ImageBag><Image href=\"file:///gone.jpg\"/>"
            "</ImageBag></Images>\r\n</Story>\r\n");
    const MailAttachments attachments = StoryMailAttachments(story, true, true);
    ASSERT_TRUE(attachments.parseError.empty());
    const SmtpOutcome outcome = SendMail(
        Mail(server.server.port(), MailBodyWith("Fire\r\n.\r\n.quiet", attachments.text)), 10s);
    ASSERT_TRUE(outcome.sent) << outcome.reply << outcome.socketErrorText;
    EXPECT_EQ(SmtpStatusText(outcome, "Sent to", "desk@example.org", Now()),
              "5 March 2024 \xC3\xA0 09:07 - Sent to desk@example.org");

    TempDir decoded;
    const std::string text =
        RunPython(kDecodeMail, {(server.mail / "1.eml").string(), decoded.path().string()});
    EXPECT_EQ(text, "Fire\n.\n.quiet\n\n");
    // The closing "'" line of each file is read by standard decoders as 7 more zero bytes.
    const std::string closingLine(7, '\0');
    EXPECT_TRUE(ReadBytes(decoded / "harbour_fire.jpg") == jpeg + closingLine);
    EXPECT_TRUE(ReadBytes(decoded / "crew.jpg") == jpeg.substr(0, 45) + closingLine);
    const std::string sentStory = ReadBytes(decoded / "fire.xml");
    EXPECT_NE(sentStory.find("href=\"harbour_fire.jpg\""), std::string::npos) << sentStory;
    EXPECT_NE(sentStory.find("href=\"gone.jpg\""), std::string::npos);
}

// Every way the server can fail ends the dialogue with the status text that says so.
TEST(SmtpSend, FailuresGiveTheirStatusTexts) {
    ScopedEnvironment now{"TESSARIN_NOW", "2024-03-05T09:07:30"};
    ScopedEnvironment longDate{"TESSARIN_LONG_DATE", "d MMMM yyyy"};
    const struct {
        const char* mode;
        const char* status;
    } cases[] = {
        {"refuse-rcpt", "5 March 2024 \xC3\xA0 09:07 - SMTP Error: 550 No such user here"},
        {"close-after-greeting", "Winsock Error number 104:Connection reset by peer"},
        {"silent", "Winsock Error number 110:Connection timed out"},
    };
    for (const auto& c : cases) {
        LocalSmtpServer server(c.mode);
        const SmtpOutcome outcome = SendMail(Mail(server.server.port(), "Fire"), 500ms);
        EXPECT_FALSE(outcome.sent) << c.mode;
        EXPECT_EQ(SmtpStatusText(outcome, "Sent to", "desk@example.org", Now()), c.status);
    }
    LocalSmtpServer server;
    MailToSend noAt = Mail(server.server.port(), "Fire");
    noAt.sender = "ann";
    EXPECT_FALSE(SendMail(noAt, 500ms).sent);
    EXPECT_TRUE(server.Message(1).empty());
}

}  // namespace
}  // namespace tessarin
