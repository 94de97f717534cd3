#include "repository/basex_session.h"

#include <charconv>

#include "repository/md5_digest.h"

namespace tessarin {
namespace {

// Strings travel ended by a zero byte; a zero or 0xFF byte inside one is preceded by 0xFF.
constexpr char kEnd = '\0';
constexpr char kEscape = '\xff';

void AppendEscaped(std::string& out, std::string_view text) {
    for (const char byte : text) {
        if (byte == kEnd || byte == kEscape) out += kEscape;
        out += byte;
    }
    out += kEnd;
}

// The protocol's codes for what is not a command.
constexpr char kQueryCode = '\x00';
constexpr char kCloseCode = '\x02';
constexpr char kBindCode = '\x03';
constexpr char kExecuteCode = '\x05';
constexpr char kAddCode = '\x09';

}  // namespace

RepositoryAddress RepositoryAddressOf(std::string_view serverName) {
    RepositoryAddress address{std::string(serverName)};
    const std::size_t colon = serverName.rfind(':');
    if (colon == std::string_view::npos) return address;
    const std::string_view port = serverName.substr(colon + 1);
    int value = 0;
    const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), value);
    if (port.empty() || error != std::errc() || end != port.data() + port.size() || value <= 0 ||
        value > 65535) {
        return address;
    }
    address.host = serverName.substr(0, colon);
    address.port = value;
    return address;
}

// The server greets with "realm:nonce"; the client answers with its name and
// md5(md5(user:realm:password) + nonce), and the server says yes with a zero byte.
bool BaseXSession::Open(const RepositoryAddress& address, std::string_view user,
                        std::string_view password) {
    if (address.host.empty()) return Fail("no server named");
    if (!stream_.Connect(address.host, address.port)) return Fail(stream_.errorText());
    const std::optional<std::string> greeting = ReadString();
    if (!greeting) return false;
    const std::size_t colon = greeting->find(':');
    if (colon == std::string::npos) return Fail("the server does not speak this protocol");
    const std::string realm = greeting->substr(0, colon);
    const std::string nonce = greeting->substr(colon + 1);
    const std::string key = Md5Hex(std::string(user) + ":" + realm + ":" + std::string(password));
    std::string login;
    AppendEscaped(login, user);
    AppendEscaped(login, Md5Hex(key + nonce));
    if (!stream_.Send(login)) return Fail(stream_.errorText());
    const std::optional<bool> accepted = ReadStatus();
    if (!accepted) return false;
    return *accepted || Fail("Access denied.");
}

// A command is answered by its result, an information text and the status byte; on a
// failure the information is the error.
std::optional<std::string> BaseXSession::Execute(std::string_view command) {
    std::string request;
    AppendEscaped(request, command);
    if (!stream_.Send(request)) {
        Fail(stream_.errorText());
        return std::nullopt;
    }
    std::optional<std::string> result = ReadString();
    if (!result) return std::nullopt;
    std::optional<std::string> info = ReadString();
    if (!info) return std::nullopt;
    const std::optional<bool> ok = ReadStatus();
    if (!ok) return std::nullopt;
    if (!*ok) {
        Fail(*info);
        return std::nullopt;
    }
    return result;
}

std::optional<std::string> BaseXSession::Query(std::string_view query, const Bindings& bindings) {
    if (!SendStrings(kQueryCode, {query})) return std::nullopt;
    const std::optional<std::string> id = QueryAnswer();
    if (!id) return std::nullopt;
    for (const auto& [name, value] : bindings) {
        if (!SendStrings(kBindCode, {*id, name, value, ""}) || !QueryAnswer()) return std::nullopt;
    }
    std::optional<std::string> result;
    if (SendStrings(kExecuteCode, {*id})) result = QueryAnswer();
    // The query is closed even after a failure, so that the server frees it; the failure
    // reported is the execution's.
    const std::string failure = error_;
    if (SendStrings(kCloseCode, {*id})) QueryAnswer();
    if (!result) error_ = failure;
    return result;
}

bool BaseXSession::Add(std::string_view path, std::string_view content) {
    if (!SendStrings(kAddCode, {path, content})) return false;
    const std::optional<std::string> info = ReadString();
    if (!info) return false;
    const std::optional<bool> ok = ReadStatus();
    if (!ok) return false;
    return *ok || Fail(*info);
}

bool BaseXSession::SendStrings(char code, const std::vector<std::string_view>& strings) {
    std::string request(1, code);
    for (const std::string_view text : strings)
        AppendEscaped(request, text);
    return stream_.Send(request) || Fail(stream_.errorText());
}

std::optional<std::string> BaseXSession::QueryAnswer() {
    std::optional<std::string> answer = ReadString();
    if (!answer) return std::nullopt;
    const std::optional<bool> ok = ReadStatus();
    if (!ok) return std::nullopt;
    if (*ok) return answer;
    const std::optional<std::string> failure = ReadString();
    if (failure) Fail(*failure);
    return std::nullopt;
}

std::optional<char> BaseXSession::NextByte() {
    if (read_ == pending_.size()) {
        pending_.clear();
        read_ = 0;
        if (!stream_.Receive(pending_)) {
            Fail(stream_.errorText());
            return std::nullopt;
        }
    }
    return pending_[read_++];
}

std::optional<std::string> BaseXSession::ReadString() {
    std::string text;
    while (true) {
        std::optional<char> byte = NextByte();
        if (byte == kEscape)
            byte = NextByte();
        else if (byte == kEnd)
            return text;
        if (!byte) return std::nullopt;
        text += *byte;
    }
}

std::optional<bool> BaseXSession::ReadStatus() {
    const std::optional<char> byte = NextByte();
    if (!byte) return std::nullopt;
    return *byte == kEnd;
}

bool BaseXSession::Fail(std::string text) {
    error_ = std::move(text);
    return false;
}

}  // namespace tessarin
