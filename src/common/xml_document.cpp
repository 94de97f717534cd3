#include "common/xml_document.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <array>
#include <climits>
#include <utility>

#include "common/file_io.h"
#include "common/utf8.h"
#include "common/windows1252.h"
#include "common/xml_serialise.h"

namespace tessarin {

namespace {

constexpr std::string_view kUtf8ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf8Declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    for (std::size_t index = 0; index < left.size(); ++index) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
        if (lower(left[index]) != lower(right[index])) return false;
    }
    return true;
}

// The bytes as the parser gets them. Documents in the 8-bit code page and documents that
// claim UTF-8 are turned into valid UTF-8 here, and the parser is told to ignore the
// declared encoding; anything else (UTF-16, other declared encodings) is left to the parser.
struct ParserInput {
    std::string text;
    bool isUtf8 = false;
};

ParserInput PrepareInput(std::string_view bytes) {
    const std::string_view head = bytes.substr(0, 4);
    const bool looksUtf16 = head.starts_with("\xFE\xFF") || head.starts_with("\xFF\xFE") ||
                            head.find('\0') != std::string_view::npos;
    if (looksUtf16) return {std::string(bytes), false};
    std::string_view body = bytes;
    if (body.starts_with(kUtf8ByteOrderMark)) body.remove_prefix(kUtf8ByteOrderMark.size());
    const std::string_view encoding = DeclaredEncoding(body);
    if (IsWindows1252Family(encoding)) return {Windows1252ToUtf8(body), true};
    if (encoding.empty() || EqualsIgnoringCase(encoding, "UTF-8") ||
        EqualsIgnoringCase(encoding, "UTF8")) {
        return {RepairUtf8(bytes), true};
    }
    return {std::string(bytes), false};
}

// Whether the bytes hold a three-byte surrogate group, the form in which older story files
// declared UTF-8 carry a character outside the Basic Multilingual Plane.
bool HoldsSurrogateGroups(std::string_view bytes) {
    for (std::size_t position = bytes.find('\xED'); position != std::string_view::npos;
         position = bytes.find('\xED', position + 1)) {
        if (position + 1 < bytes.size() &&
            (static_cast<unsigned char>(bytes[position + 1]) & 0xE0) == 0xA0)
            return true;
    }
    return false;
}

// The line (1-based, lines end in LF) of the text, without its CR LF, as UTF-8.
std::string SourceLine(std::string_view text, int line, bool isUtf8) {
    if (line < 1) return {};
    std::size_t start = 0;
    for (int current = 1; current < line; ++current) {
        start = text.find('\n', start);
        if (start == std::string_view::npos) return {};
        ++start;
    }
    std::string_view found = text.substr(start, text.find('\n', start) - start);
    if (found.ends_with('\r')) found.remove_suffix(1);
    return isUtf8 ? std::string(found) : RepairUtf8(found);
}

// The parser's first error, and its first fatal one, which is what stopped it.
struct CollectedErrors {
    std::optional<XmlParseError> firstError;
    std::optional<XmlParseError> firstFatal;
};

void CollectError(void* data, xmlErrorPtr error) {
    auto& collected = *static_cast<CollectedErrors*>(data);
    if (error == nullptr || error->level < XML_ERR_ERROR) return;
    std::string_view message = error->message != nullptr ? error->message : "";
    message = TrimBlanks(message.substr(0, message.find('\n')));
    XmlParseError parsed{error->line, error->int2, "", std::string(message)};
    if (!collected.firstError) collected.firstError = parsed;
    if (error->level == XML_ERR_FATAL && !collected.firstFatal) collected.firstFatal = parsed;
}

// Routes the parser's reports of this thread to a collector for the life of the object, so
// that nothing is printed and the first report can be kept.
class ScopedErrorCollector {
  public:
    explicit ScopedErrorCollector(CollectedErrors& collected)
        : formerHandler_(xmlStructuredError), formerContext_(xmlStructuredErrorContext) {
        xmlSetStructuredErrorFunc(&collected, CollectError);
    }
    ~ScopedErrorCollector() { xmlSetStructuredErrorFunc(formerContext_, formerHandler_); }
    ScopedErrorCollector(const ScopedErrorCollector&) = delete;
    ScopedErrorCollector& operator=(const ScopedErrorCollector&) = delete;

  private:
    xmlStructuredErrorFunc formerHandler_;
    void* formerContext_;
};

void InitialiseParserOnce() {
    static const bool initialised = [] {
        xmlInitParser();
        return true;
    }();
    (void)initialised;
}

// Network access, DTD loading, default attributes from the DTD, entity substitution and
// the lifting of the parser's size and depth limits are all left off; white space is kept.
constexpr int kParseOptions = XML_PARSE_NONET;

}  // namespace

std::string_view DeclaredEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return {};
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    std::size_t position = declaration.find("encoding");
    if (position == std::string_view::npos) return {};
    position = declaration.find_first_not_of(" \t\r\n", position + 8);
    if (position == std::string_view::npos || declaration[position] != '=') return {};
    position = declaration.find_first_not_of(" \t\r\n", position + 1);
    if (position == std::string_view::npos) return {};
    const char quote = declaration[position];
    if (quote != '"' && quote != '\'') return {};
    const std::size_t end = declaration.find(quote, position + 1);
    if (end == std::string_view::npos) return {};
    return declaration.substr(position + 1, end - position - 1);
}

bool IsWindows1252Family(std::string_view encoding) {
    static constexpr std::array<std::string_view, 8> kNames = {
        "ISO-8859-1", "ISO_8859-1", "ISO8859-1",    "LATIN1",
        "LATIN-1",    "L1",         "WINDOWS-1252", "CP1252"};
    for (const std::string_view name : kNames) {
        if (EqualsIgnoringCase(encoding, name)) return true;
    }
    return false;
}

std::string FormatParseErrorStatus(std::string_view path, const XmlParseError& error) {
    std::string status = "Parsing error: ";
    status.append(path);
    status +=
        ", line:" + std::to_string(error.line) + ", pos:" + std::to_string(error.linePosition);
    status += ' ';
    status.append(TrimBlanks(error.sourceText));
    status += ' ';
    status += error.reason;
    return status;
}

XmlDocument::XmlDocument() = default;

XmlDocument::~XmlDocument() {
    if (doc_ != nullptr) xmlFreeDoc(doc_);
}

XmlDocument::XmlDocument(XmlDocument&& other) noexcept
    : doc_(std::exchange(other.doc_, nullptr)),
      error_(std::move(other.error_)),
      saveForm_(std::move(other.saveForm_)) {}

XmlDocument& XmlDocument::operator=(XmlDocument&& other) noexcept {
    if (this != &other) {
        if (doc_ != nullptr) xmlFreeDoc(doc_);
        doc_ = std::exchange(other.doc_, nullptr);
        error_ = std::move(other.error_);
        saveForm_ = std::move(other.saveForm_);
    }
    return *this;
}

bool XmlDocument::LoadFile(const std::filesystem::path& file) {
    const std::optional<std::string> bytes = ReadFileBytes(file);
    if (!bytes) {
        *this = XmlDocument();
        error_ = XmlParseError{0, 0, "", "cannot read file"};
        return false;
    }
    return LoadBytes(*bytes);
}

bool XmlDocument::LoadBytes(std::string_view bytes) {
    *this = XmlDocument();
    InitialiseParserOnce();
    const ParserInput input = PrepareInput(bytes);
    if (input.text.size() > static_cast<std::size_t>(INT_MAX)) {
        error_ = XmlParseError{0, 0, "", "document too large"};
        return false;
    }
    CollectedErrors collected;
    xmlParserCtxtPtr context = xmlNewParserCtxt();
    if (context != nullptr) {
        const ScopedErrorCollector collector(collected);
        doc_ = xmlCtxtReadMemory(context, input.text.data(), static_cast<int>(input.text.size()),
                                 nullptr, input.isUtf8 ? "UTF-8" : nullptr,
                                 kParseOptions | (input.isUtf8 ? XML_PARSE_IGNORE_ENC : 0));
        xmlFreeParserCtxt(context);
    }
    if (doc_ != nullptr && xmlDocGetRootElement(doc_) != nullptr) {
        saveForm_ = SaveFormOf(bytes, input.isUtf8);
        return true;
    }
    if (doc_ != nullptr) {
        xmlFreeDoc(doc_);
        doc_ = nullptr;
    }
    XmlParseError error = collected.firstFatal.value_or(
        collected.firstError.value_or(XmlParseError{0, 0, "", "the document cannot be parsed"}));
    error.sourceText = SourceLine(input.text, error.line, input.isUtf8);
    error_ = std::move(error);
    return false;
}

XmlNode XmlDocument::DocumentElement() const {
    return XmlNode(doc_ != nullptr ? xmlDocGetRootElement(doc_) : nullptr);
}

XmlDocument::SaveForm XmlDocument::SaveFormOf(std::string_view bytes, bool readAsUtf8) {
    SaveForm form;
    form.byteOrderMark = bytes.starts_with(kUtf8ByteOrderMark);
    if (form.byteOrderMark) bytes.remove_prefix(kUtf8ByteOrderMark.size());
    if (!readAsUtf8) {
        form.byteOrderMark = false;
        form.declaration = kUtf8Declaration;
        return form;
    }
    const std::size_t declarationEnd = bytes.starts_with("<?xml") ? bytes.find("?>") : bytes.npos;
    if (declarationEnd != std::string_view::npos)
        form.declaration = bytes.substr(0, declarationEnd + 2);
    if (IsWindows1252Family(DeclaredEncoding(bytes))) {
        form.encoding = SavedEncoding::Windows1252;
    } else if (HoldsSurrogateGroups(bytes)) {
        form.encoding = SavedEncoding::Utf8WithSurrogateGroups;
    }
    return form;
}

std::string XmlDocument::SaveBytes() const {
    if (doc_ == nullptr) return {};
    const XmlWriteForm form = saveForm_.encoding == SavedEncoding::Windows1252
                                  ? XmlWriteForm::StoryFileWindows1252
                                  : XmlWriteForm::StoryFile;
    std::string text = saveForm_.declaration;
    if (!text.empty()) text += "\r\n";
    for (const xmlNode* node = doc_->children; node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE && node->type != XML_COMMENT_NODE &&
            node->type != XML_PI_NODE) {
            continue;
        }
        AppendNodeXml(node, form, text);
        text += "\r\n";
    }
    switch (saveForm_.encoding) {
        case SavedEncoding::Windows1252:
            return Utf8ToWindows1252(text);
        case SavedEncoding::Utf8WithSurrogateGroups:
            text = EncodeUtf8Bytes(Utf8ToUtf16(text));
            break;
        case SavedEncoding::Utf8:
            break;
    }
    return saveForm_.byteOrderMark ? std::string(kUtf8ByteOrderMark) + text : text;
}

bool XmlDocument::SaveFile(const std::filesystem::path& file) const {
    return doc_ != nullptr && WriteFileAtomically(file, SaveBytes());
}

}  // namespace tessarin
