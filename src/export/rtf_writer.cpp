#include "export/rtf_writer.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "common/utf8.h"
#include "common/windows1252.h"

namespace tessarin {
namespace {

class FontTable {
  public:
    std::size_t Number(const std::string& name) {
        const auto found = std::find(names_.begin(), names_.end(), name);
        if (found != names_.end()) return static_cast<std::size_t>(found - names_.begin());
        names_.push_back(name);
        return names_.size() - 1;
    }
    std::string Rtf() const {
        std::string table = "{\\fonttbl";
        for (std::size_t number = 0; number < names_.size(); ++number) {
            table += "{\\f" + std::to_string(number) + "\\fnil\\fcharset0 " +
                     RtfEscapedText(Utf8ToUtf16(names_[number])) + ";}";
        }
        return table + "}";
    }

  private:
    std::vector<std::string> names_;
};

// The control words that take the text from one format to the next.
std::string Switches(const CharFormat& from, const CharFormat& to, FontTable& fonts) {
    std::string words;
    if (from.fontName != to.fontName) words += "\\f" + std::to_string(fonts.Number(to.fontName));
    if (from.fontSize != to.fontSize) words += "\\fs" + std::to_string(to.fontSize * 2);
    if (from.bold != to.bold) words += to.bold ? "\\b" : "\\b0";
    if (from.italic != to.italic) words += to.italic ? "\\i" : "\\i0";
    const bool underlined = to.underline || to.waveUnderline;
    if ((from.underline || from.waveUnderline) != underlined)
        words += underlined ? "\\ul" : "\\ulnone";
    if ((from.offset > 0) != (to.offset > 0)) words += to.offset > 0 ? "\\super" : "\\nosupersub";
    return words.empty() ? words : words + " ";
}

}  // namespace

std::string RtfEscapedText(std::u16string_view text) {
    std::string rtf;
    rtf.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c == u'\\' || c == u'{' || c == u'}') {
            rtf += '\\';
            rtf += static_cast<char>(c);
        } else if (c == u'\t') {
            rtf += "\\tab ";
        } else if (c == u'\u00A0') {
            rtf += "\\~";
        } else if (c == u'\r' || c == u'\n') {
            continue;
        } else if (c < 0x80) {
            rtf += static_cast<char>(c);
        } else if (const int byte = CodePointToWindows1252(c); byte >= 0) {
            char hex[16];
            std::snprintf(hex, sizeof hex, "\\'%02x", byte);
            rtf += hex;
        } else {
            rtf += "\\u" + std::to_string(static_cast<std::int16_t>(c)) + "?";
        }
    }
    return rtf;
}

std::string DraftRtf(const StoryDraft& draft) {
    FontTable fonts;
    std::string body = "\\pard";
    CharFormat current;
    current.fontName = "\x01";  // matches no font, so that the first run names its own
    const std::u16string text = draft.text.Text();
    for (const FormatRun& run : draft.text.Runs()) {
        std::size_t position = run.start;
        const std::size_t end = run.start + run.length;
        while (position < end) {
            if (position == draft.signatureStart) body += "\\qr ";
            const std::size_t lineEnd = std::min(end, text.find(u'\n', position));
            body += Switches(current, run.format, fonts);
            current = run.format;
            body += RtfEscapedText(std::u16string_view(text).substr(position, lineEnd - position));
            if (lineEnd < end) body += "\\par\r\n";
            position = lineEnd + (lineEnd < end ? 1 : 0);
        }
    }
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0" + fonts.Rtf() + "\r\n\\viewkind4\\uc1" + body +
           (body.ends_with("\r\n") ? "}" : "\r\n}");
}

}  // namespace tessarin
