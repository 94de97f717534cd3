#include "repository/basex_session.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "repository/md5_digest.h"
#include "support/local_basex.h"

namespace tessarin {
namespace {

using testing::LocalBaseXServer;

TEST(Md5Digest, GivesTheKnownDigests) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        // longer than one block, and ending past the length field's place
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"},
        {std::string(56, 'a'), "3b0c8ac703f828b04c6c197006d17218"},
    };
    for (const auto& [text, digest] : cases)
        EXPECT_EQ(Md5Hex(text), digest) << text;
}

TEST(RepositoryAddress, TakesThePortAfterTheLastColon) {
    const std::tuple<std::string, std::string, int> cases[] = {
        {"localhost", "localhost", 1984},
        {"db.example:2001", "db.example", 2001},
        {"db.example:", "db.example:", 1984},
        {"db.example:port", "db.example:port", 1984},
        {"db.example:99999", "db.example:99999", 1984},
        {"", "", 1984},
    };
    for (const auto& [name, host, port] : cases) {
        const RepositoryAddress address = RepositoryAddressOf(name);
        EXPECT_EQ(address.host, host) << name;
        EXPECT_EQ(address.port, port) << name;
    }
}

class BaseXSessionTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { ASSERT_TRUE(LocalBaseXServer::Shared().running()); }

    bool Login(BaseXSession& session, std::string_view password = "admin") {
        return session.Open(RepositoryAddressOf(LocalBaseXServer::Shared().address()), "admin",
                            password);
    }
};

TEST_F(BaseXSessionTest, RunsCommandsAndQueriesWithBoundVariables) {
    BaseXSession session(std::chrono::seconds(10));
    ASSERT_TRUE(Login(session)) << session.error();
    ASSERT_TRUE(session.Execute("CREATE DB SessionBase")) << session.error();
    ASSERT_TRUE(session.Add("a/one.xml", "<one>\xC3\xA9</one>")) << session.error();
    ASSERT_TRUE(session.Add("a/one.xml", "<one>2</one>")) << session.error();
    const auto count =
        session.Query("declare variable $path external; count(db:open('SessionBase', $path))",
                      {{"$path", "a/one.xml"}});
    ASSERT_TRUE(count) << session.error();
    EXPECT_EQ(*count, "2");
    // A zero byte cannot stand in a query, but 0xFF-free UTF-8 of any length travels whole.
    const std::string long_text(70000, 'x');
    const auto echoed = session.Query("declare variable $text external; string-length($text)",
                                      {{"$text", long_text}});
    ASSERT_TRUE(echoed) << session.error();
    EXPECT_EQ(*echoed, "70000");
}

TEST_F(BaseXSessionTest, GivesTheServersWordsOnFailure) {
    BaseXSession session(std::chrono::seconds(10));
    ASSERT_TRUE(Login(session)) << session.error();
    EXPECT_FALSE(session.Execute("OPEN NoSuchBase"));
    EXPECT_NE(session.error().find("NoSuchBase"), std::string::npos) << session.error();
    EXPECT_FALSE(session.Query("1 +", {}));
    EXPECT_FALSE(session.error().empty());
    EXPECT_FALSE(session.Add("x.xml", "<not-closed>"));
    EXPECT_FALSE(session.error().empty());
    // The session is still usable after each failure.
    EXPECT_EQ(session.Query("1 + 1", {}).value_or(""), "2") << session.error();

    BaseXSession refused(std::chrono::seconds(10));
    EXPECT_FALSE(Login(refused, "wrong"));
    EXPECT_EQ(refused.error(), "Access denied.");
}

TEST_F(BaseXSessionTest, GivesUpOnASilentPeerAfterTheTimeout) {
    // A socket that listens but never answers: the connection is taken by the kernel, the
    // greeting never comes.
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size), 0);
    BaseXSession session(std::chrono::milliseconds(200));
    EXPECT_FALSE(session.Open({"127.0.0.1", ntohs(address.sin_port)}, "admin", "admin"));
    EXPECT_EQ(session.error(), "Connection timed out");
    close(listener);

    BaseXSession down(std::chrono::seconds(5));
    EXPECT_FALSE(down.Open({"127.0.0.1", testing::FreePort()}, "admin", "admin"));
    EXPECT_EQ(down.error(), "Connection refused");
}

}  // namespace
}  // namespace tessarin
