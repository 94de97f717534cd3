#include "story/rtf_reader.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "common/windows1252.h"
#include "editing/non_breaking_mark.h"

namespace tessarin {
namespace {

// Destinations whose content is not the document's text.
constexpr std::array<std::string_view, 16> kSkippedDestinations = {
    "fonttbl",   "colortbl",         "stylesheet", "info",    "pict",    "fldinst", "header",
    "footer",    "headerl",          "headerr",    "footerl", "footerr", "object",  "themedata",
    "listtable", "listoverridetable"};

struct GroupState {
    CharFormat format;
    bool skipped = false;
    int unicodeSkip = 1;  // \ucN: characters that stand in for each \u character
};

class RtfParser {
  public:
    explicit RtfParser(std::string_view bytes) : bytes_(bytes) {}

    StyledText Parse() {
        states_.push_back({});
        while (position_ < bytes_.size()) {
            const char c = bytes_[position_++];
            if (c == '{') {
                states_.push_back(states_.back());
                startOfGroup_ = true;
                continue;
            }
            if (c == '}') {
                if (states_.size() > 1) states_.pop_back();
                startOfGroup_ = false;
                continue;
            }
            if (c == '\\') {
                ControlSymbolOrWord();
            } else if (c != '\r' && c != '\n') {
                AddByte(static_cast<unsigned char>(c));
            }
            startOfGroup_ = false;
        }
        Flush();
        // The mark that ends the last paragraph adds no empty line.
        const std::size_t length = text_.Length();
        if (length >= 2 && text_.Text(length - 2, 2) == u"\r\n") text_.Erase(length - 2, 2);
        return std::move(text_);
    }

  private:
    GroupState& State() { return states_.back(); }

    // Text is gathered while its format stays, and goes into the result when it changes.
    void AddChar(char16_t c) {
        if (State().skipped) return;
        if (c == u'\u00A0') c = kNonBreakingMark;
        const CharFormat format =
            c == kNonBreakingMark ? NonBreakingMarkFormat(State().format) : State().format;
        if (!pending_.empty() && !(format == pendingFormat_)) Flush();
        if (pending_.empty()) pendingFormat_ = format;
        pending_ += c;
    }
    void AddByte(unsigned char byte) {
        AddChar(static_cast<char16_t>(Windows1252ToCodePoint(byte)));
    }
    void Flush() {
        if (pending_.empty()) return;
        text_.Insert(text_.Length(), pending_, pendingFormat_);
        pending_.clear();
    }
    void ChangeFormat(const std::function<void(CharFormat&)>& change) { change(State().format); }

    void ControlSymbolOrWord() {
        if (position_ >= bytes_.size()) return;
        const char c = bytes_[position_];
        if (!IsLetter(c)) {
            ++position_;
            ControlSymbol(c);
            return;
        }
        const std::size_t start = position_;
        while (position_ < bytes_.size() && IsLetter(bytes_[position_]))
            ++position_;
        const std::string_view word = bytes_.substr(start, position_ - start);
        std::string digits;
        if (position_ < bytes_.size() && bytes_[position_] == '-') digits += bytes_[position_++];
        while (position_ < bytes_.size() && bytes_[position_] >= '0' && bytes_[position_] <= '9' &&
               digits.size() < 10) {
            digits += bytes_[position_++];
        }
        if (position_ < bytes_.size() && bytes_[position_] == ' ') ++position_;
        const bool hasParameter = !digits.empty() && digits != "-";
        const long parameter = hasParameter ? std::strtol(digits.c_str(), nullptr, 10) : 0;
        ControlWord(word, hasParameter, parameter);
    }

    void ControlSymbol(char c) {
        switch (c) {
            case '\\':
            case '{':
            case '}':
                AddChar(static_cast<char16_t>(c));
                break;
            case '~':
                AddChar(u'\u00A0');
                break;
            case '_':
                AddChar(u'-');
                break;
            case '*':
                if (startOfGroup_) State().skipped = true;
                break;
            case '\'': {
                if (position_ + 2 > bytes_.size()) return;
                const std::string hex(bytes_.substr(position_, 2));
                char* end = nullptr;
                const long byte = std::strtol(hex.c_str(), &end, 16);
                if (end == hex.c_str() + 2) {
                    position_ += 2;
                    AddByte(static_cast<unsigned char>(byte));
                }
                break;
            }
            case '\r':
            case '\n':
                Paragraph();
                break;
            default:
                break;
        }
    }

    void ControlWord(std::string_view word, bool hasParameter, long parameter) {
        const bool on = !hasParameter || parameter != 0;
        if (word == "par" || word == "line" || word == "sect" || word == "page") {
            Paragraph();
        } else if (word == "tab") {
            AddChar(u'\t');
        } else if (word == "b") {
            ChangeFormat([on](CharFormat& f) { f.bold = on; });
        } else if (word == "i") {
            ChangeFormat([on](CharFormat& f) { f.italic = on; });
        } else if (word == "ul" || word == "uld" || word == "uldb" || word == "ulw") {
            ChangeFormat([on](CharFormat& f) { f.underline = on; });
        } else if (word == "ulnone") {
            ChangeFormat([](CharFormat& f) { f.underline = false; });
        } else if (word == "super") {
            ChangeFormat([](CharFormat& f) { f.offset = 3; });
        } else if (word == "up") {
            ChangeFormat([parameter](CharFormat& f) { f.offset = parameter > 0 ? 3 : 0; });
        } else if (word == "nosupersub" || word == "sub") {
            ChangeFormat([](CharFormat& f) { f.offset = 0; });
        } else if (word == "plain") {
            ChangeFormat([](CharFormat& f) { f = CharFormat{}; });
        } else if (word == "bin") {
            // Binary data of a picture or an object: never text.
            position_ += std::min<std::size_t>(bytes_.size() - position_,
                                               static_cast<std::size_t>(std::max(parameter, 0L)));
        } else if (word == "uc") {
            State().unicodeSkip = static_cast<int>(std::clamp(parameter, 0L, 10L));
        } else if (word == "u") {
            AddChar(static_cast<char16_t>(parameter));
            SkipFallback(State().unicodeSkip);
        } else if (word == "emdash") {
            AddChar(u'\u2014');
        } else if (word == "endash") {
            AddChar(u'\u2013');
        } else if (word == "lquote") {
            AddChar(u'\u2018');
        } else if (word == "rquote") {
            AddChar(u'\u2019');
        } else if (word == "ldblquote") {
            AddChar(u'\u201C');
        } else if (word == "rdblquote") {
            AddChar(u'\u201D');
        } else if (word == "bullet") {
            AddChar(u'\u2022');
        } else if (startOfGroup_ && IsSkippedDestination(word)) {
            State().skipped = true;
        }
    }

    // The characters that follow a \u character for readers that do not know it: a byte, a
    // \'hh or a control word each count as one.
    void SkipFallback(int count) {
        for (; count > 0 && position_ < bytes_.size(); --count) {
            const char c = bytes_[position_];
            if (c == '{' || c == '}') return;
            ++position_;
            if (c != '\\' || position_ >= bytes_.size()) continue;
            if (bytes_[position_] == '\'') {
                position_ = std::min(bytes_.size(), position_ + 3);
            } else {
                while (position_ < bytes_.size() && IsLetter(bytes_[position_]))
                    ++position_;
                while (position_ < bytes_.size() &&
                       (bytes_[position_] == '-' ||
                        (bytes_[position_] >= '0' && bytes_[position_] <= '9')))
                    ++position_;
                if (position_ < bytes_.size() && bytes_[position_] == ' ') ++position_;
            }
        }
    }

    void Paragraph() {
        AddChar(u'\r');
        AddChar(u'\n');
    }

    static bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
    static bool IsSkippedDestination(std::string_view word) {
        for (const std::string_view skipped : kSkippedDestinations) {
            if (word == skipped) return true;
        }
        return false;
    }

    std::string_view bytes_;
    std::size_t position_ = 0;
    std::vector<GroupState> states_;
    bool startOfGroup_ = false;
    std::u16string pending_;
    CharFormat pendingFormat_;
    StyledText text_;
};

}  // namespace

StyledText ReadRtf(std::string_view bytes) {
    return RtfParser(bytes).Parse();
}

}  // namespace tessarin
