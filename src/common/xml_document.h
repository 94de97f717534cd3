#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct _xmlDoc;
struct _xmlNode;

namespace tessarin {

// What the parser reports about a document that is not well-formed.
struct XmlParseError {
    int line = 0;            // 1-based line of the error
    int linePosition = 0;    // 1-based position in that line, in characters
    std::string sourceText;  // the text of that line, as UTF-8
    std::string reason;      // the parser's own words, one line
};

// "Parsing error: " path ", line:" n ", pos:" n " " trimmed source text " " reason: the
// status text that the program shows for a document that does not parse.
std::string FormatParseErrorStatus(std::string_view path, const XmlParseError& error);

// A light handle on an element (or the document's root element) of an XmlDocument. It is
// valid while its document lives. A default-constructed node is "missing": every read on
// it gives the empty value, as the program's reading idiom wants.
class XmlNode {
  public:
    XmlNode() = default;
    explicit XmlNode(_xmlNode* node) : node_(node) {}

    explicit operator bool() const { return node_ != nullptr; }
    bool operator==(const XmlNode& other) const { return node_ == other.node_; }

    // The element's name; empty for a missing node.
    std::string Name() const;

    // The attribute's value as UTF-8, empty when the attribute (or the node) is missing.
    std::string Attribute(std::string_view name) const;
    bool HasAttribute(std::string_view name) const;
    void RemoveAllAttributes();

    // The text of the element and all its descendants, concatenated, white space kept:
    // text, CDATA sections and the replacement text of internal entities (never of external
    // ones); comments and processing instructions add nothing. Line ends are LF, as the
    // parser normalised them.
    std::string Text() const;

    // Plain relative paths as the program writes them: "Metadata", "Users/User",
    // "./Topic", "Body/TextBox0", "//note" (any descendant of this node, at any depth, not
    // the whole document), "*" (any child element), "." (this node). Steps combine
    // ("Topic//note", ".//User"); names compare exactly, with their namespace prefix.
    // Matches come in document order.
    XmlNode SelectSingleNode(std::string_view path) const;
    std::vector<XmlNode> SelectNodes(std::string_view path) const;

    // The child elements in document order.
    std::vector<XmlNode> ChildElements() const;
    bool HasChildElements() const;

    // The element serialised as a story file holds it: the start tag with its namespace
    // declarations and attributes in double quotes, the content, the end tag ("<p/>" for an
    // element without content). In text, "&", "<" and ">" are written as entities and a
    // line feed as CR LF, so that the parser's line-end normalisation does not show
    // through; a CR (which only a character reference can have put there) is written
    // "&#13;". In attribute values "&", "<" and '"' are entities and tab, LF and CR are
    // written "&#9;", "&#10;", "&#13;". Other characters are written as UTF-8 characters
    // (a "&#160;" of the file comes out as U+00A0). An internal entity's reference is
    // written as its replacement; CDATA sections, comments and processing instructions are
    // kept, with LF written as CR LF.
    std::string Xml() const;

    // Editing, as the export writers change a story before saving it back. Names are
    // element and attribute names as a story file writes them. Text and attribute values are
    // UTF-8; bytes that are not are read as Windows-1252 characters, and characters that an
    // XML document cannot hold (control characters other than tab, LF and CR) are left out.

    // Takes the element, with everything below it, out of its document. This handle becomes
    // missing; other handles on the element or below it must not be used any more. A
    // missing node or the document's root element is left alone.
    void Remove();

    // Appends a new, empty child element after everything the element holds (text
    // included) and returns it; missing when this node is missing.
    XmlNode AppendElement(std::string_view name);

    // The first child element of that name, else a new one appended as above.
    XmlNode FindOrAppendElement(std::string_view name);

    // Sets the attribute, adding it after the others when it is new.
    void SetAttribute(std::string_view name, std::string_view value);

    // Replaces everything the element holds by the text (nothing when it is empty).
    void SetText(std::string_view text);

    _xmlNode* raw() const { return node_; }

  private:
    _xmlNode* node_ = nullptr;
};

// The value of the encoding pseudo-attribute of the XML declaration at the start of the
// bytes; empty when there is no declaration or it names no encoding.
std::string_view DeclaredEncoding(std::string_view bytes);

// True for the names, in any case, under which a file declares the 8-bit code page read as
// Windows-1252: ISO-8859-1, ISO_8859-1, ISO8859-1, LATIN1, LATIN-1, L1, WINDOWS-1252, CP1252.
bool IsWindows1252Family(std::string_view encoding);

// An XML document read from a file or from bytes. No network access, no DTD loading, no
// external entities. A document that declares ISO-8859-1 (or latin1, Windows-1252) is read
// as Windows-1252; one that declares UTF-8 (or nothing) has its stray bytes read as
// Windows-1252 characters and its surrogate groups joined, as RepairUtf8 does. UTF-16 and
// other declared encodings are decoded by the parser itself.
class XmlDocument {
  public:
    XmlDocument();
    ~XmlDocument();
    XmlDocument(XmlDocument&&) noexcept;
    XmlDocument& operator=(XmlDocument&&) noexcept;
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    // Loads and parses; false on a parse error (see ParseError) or an unreadable file.
    bool LoadFile(const std::filesystem::path& file);
    bool LoadBytes(std::string_view bytes);

    // Set after a failed load: the parser's first fatal error (nothing is printed). A file
    // that cannot be read is reported at line 0, position 0, with the reason "cannot read
    // file". Documents are parsed within the parser's limits: a nesting beyond the parser's
    // depth limit (some 256 levels) or an entity expansion out of proportion to the
    // document is an error.
    const std::optional<XmlParseError>& ParseError() const { return error_; }

    // The root element; missing when nothing is loaded.
    XmlNode DocumentElement() const;

    // The whole document as a story file holds it, so that a document loaded from a story
    // file and left unchanged gives the file's bytes back: the XML declaration as it was
    // written (a byte-order mark before it kept), then the comments, processing
    // instructions and the root element at the top level, each followed by CR LF. Inside,
    // elements are written as Xml() does, except that text and attribute values use the
    // five entities of a story file ("&amp;", "&quot;", "&apos;", "&lt;", "&gt;") and a
    // non-breaking space is written "&#160;". A document declared ISO-8859-1 (or latin1,
    // Windows-1252) is written in Windows-1252, with a character reference for a character
    // of text or attribute that the code page lacks ("?" in a comment or processing
    // instruction); one declared UTF-8, or nothing, in UTF-8, with each character outside
    // the Basic Multilingual Plane as two three-byte surrogate groups when the loaded
    // bytes held that form. A document in another encoding is written in UTF-8 under the
    // declaration <?xml version="1.0" encoding="UTF-8"?>. A document type declaration is
    // not written. Empty when nothing is loaded.
    std::string SaveBytes() const;

    // Writes SaveBytes() over the file, never leaving it half-written; false when that
    // fails (nothing loaded, no write permission, no such directory).
    bool SaveFile(const std::filesystem::path& file) const;

  private:
    // How SaveBytes writes the document back: what the loaded bytes declared.
    enum class SavedEncoding { Utf8, Utf8WithSurrogateGroups, Windows1252 };
    struct SaveForm {
        bool byteOrderMark = false;
        std::string declaration;  // as written, "?>" included; empty when there was none
        SavedEncoding encoding = SavedEncoding::Utf8;
    };

    // The form of loaded bytes; readAsUtf8 tells whether they were given to the parser as
    // UTF-8 (Windows-1252 or UTF-8 declared, or nothing declared).
    static SaveForm SaveFormOf(std::string_view bytes, bool readAsUtf8);

    _xmlDoc* doc_ = nullptr;
    std::optional<XmlParseError> error_;
    SaveForm saveForm_;
};

}  // namespace tessarin
