#include <array>
#include <string>

#include "common/utf8.h"
#include "common/windows1252.h"
#include "common/xml_escape.h"
#include "story/inline_tags.h"
#include "story/markup_text_passes.h"
#include "story/story_markup.h"
#include "story/word_count.h"
#include "text/text_window.h"

namespace tessarin {
namespace {

constexpr char16_t kMiddleDot = 0x00B7;
constexpr char16_t kPilcrow = 0x00B6;

// Writes the tags of a box's text: a tag opens when a character has the attribute and closes
// when one lacks it, in a fixed order of checks. Each character's format is checked before
// the character itself is written; checking a format twice in a row writes nothing the
// second time, so a run of characters with one format needs one check, and another only
// after a paragraph has closed bold, italic, underline and superscript.
class InlineTagWriter {
  public:
    InlineTagWriter(int boxIndex, const MarkupSettings& settings, std::u16string& out)
        : mainBox_(boxIndex == kMainTextBox), settings_(settings), out_(out) {}

    void CheckFormat(const CharFormat& format) {
        bool interColour = false;
        for (std::size_t style = 0; style < settings_.interColours.size(); ++style) {
            const bool inStyle = format.colour == settings_.interColours[style];
            interColour = interColour || inStyle;
            Set(static_cast<InlineTag>(TagIndex(InlineTag::Inter1) + style), mainBox_ && inStyle);
        }
        Set(InlineTag::Superscript, format.offset > 0);
        // Text in an inter colour is written bold by its style, in any box.
        if (!interColour) Set(InlineTag::Bold, format.bold);
        Set(InlineTag::Note, format.isProtected);
        Set(InlineTag::Italic, format.italic);
        // The wavy underline of a note is not an underline.
        if (!format.isProtected) Set(InlineTag::Underline, format.underline);
    }

    // Returns true when the character ended a paragraph.
    bool WriteCharacter(char16_t character) {
        if (character == u'\r' || character == u'\n') {
            // Both characters of a line break are empty to the paragraph test: the first one
            // is remembered, the second one writes the paragraph.
            if (!lineEndPending_) {
                lineEndPending_ = true;
                return false;
            }
            lineEndPending_ = false;
            for (const InlineTag tag :
                 {InlineTag::Bold, InlineTag::Italic, InlineTag::Underline, InlineTag::Superscript})
                Set(tag, false);
            out_ += u"<p/>";
            return true;
        }
        lineEndPending_ = false;
        switch (character) {
            case kMiddleDot:
                out_ += u"&#160;";
                break;
            case u'\t':
                out_ += u"<tab/>";
                break;
            case u'&':
                out_ += u"&amp;";
                break;
            case u'\'':
                out_ += u"&apos;";
                break;
            case u'"':
                out_ += u"&quot;";
                break;
            case u'<':
                out_ += u"&lt;";
                break;
            case u'>':
                out_ += u"&gt;";
                break;
            case 0x0152:
                out_ += u"<OE/>";
                break;
            case 0x0153:
                out_ += u"<oe/>";
                break;
            case 0x20AC:
                out_ += u"<euro/>";
                break;
            default:
                out_ += character;
        }
        return false;
    }

    void CloseAll() {
        for (const InlineTag tag :
             {InlineTag::Inter1, InlineTag::Inter2, InlineTag::Inter3, InlineTag::Bold,
              InlineTag::Italic, InlineTag::Underline, InlineTag::Superscript, InlineTag::Note})
            Set(tag, false);
    }

  private:
    void Set(InlineTag tag, bool on) {
        bool& open = open_[TagIndex(tag)];
        if (open == on) return;
        open = on;
        out_ += on ? kInlineTagOpening[TagIndex(tag)] : kInlineTagClosing[TagIndex(tag)];
    }

    bool mainBox_;
    const MarkupSettings& settings_;
    std::u16string& out_;
    std::array<bool, kInlineTagCount> open_{};
    bool lineEndPending_ = false;
};

// A pilcrow that the paragraph display put before a line break is not part of the text.
bool IsParagraphMark(TextWindow& window, std::size_t position) {
    return window.At(position) == kPilcrow && position + 2 < window.Length() &&
           window.At(position + 1) == u'\r' && window.At(position + 2) == u'\n';
}

std::u16string AsciiUnits(std::string_view ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

void WriteInlineTags(const StyledText& text, int boxIndex, const MarkupSettings& settings,
                     const InlineTagFinisher::Emit& emit) {
    constexpr std::size_t kSettleEvery = 4096;
    InlineTagFinisher finisher(settings.removeDuplicateSpaces, emit);
    std::u16string tags;
    InlineTagWriter writer(boxIndex, settings, tags);
    TextWindow window(text);
    text.ForEachRun(0, text.Length(), [&](const FormatRun& run) {
        bool checked = false;
        for (std::size_t position = run.start; position < run.start + run.length; ++position) {
            if (IsParagraphMark(window, position)) continue;
            if (!checked) writer.CheckFormat(run.format);
            checked = !writer.WriteCharacter(window.At(position));
        }
        if (tags.size() >= kSettleEvery) finisher.FeedSettled(tags);
    });
    writer.CloseAll();
    // No box ends in a paragraph break: a trailing blank line never reaches the file.
    while (tags.ends_with(u"<p/>"))
        tags.resize(tags.size() - 4);
    finisher.FeedLast(tags);
}

void WriteBoxElement(const MarkupBox& box, int index, const MarkupSettings& settings,
                     const InlineTagFinisher::Emit& emit) {
    std::u16string caption = Utf8ToUtf16(box.caption);
    FinishBodyText(caption, settings.removeDuplicateSpaces);
    const std::u16string number = AsciiUnits(std::to_string(index));
    emit(u"<TextBox" + number + u" CharCount=\"" + AsciiUnits(std::to_string(box.charCount)) +
         u"\" WordCount=\"" + AsciiUnits(std::to_string(CountStoryWords(*box.text))) +
         u"\" Name=\"" + caption + u"\">");
    WriteInlineTags(*box.text, index, settings, emit);
    emit(u"</TextBox" + number + u">\r\n");
}

// One byte per character of the code page; a character it lacks (or a lone surrogate) is "?".
void AppendWindows1252(std::u16string_view text, std::string& bytes) {
    for (std::size_t position = 0; position < text.size(); ++position) {
        char32_t codePoint = text[position];
        // The code page is Latin-1 apart from 0x80 to 0x9F.
        if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
            bytes += static_cast<char>(codePoint);
            continue;
        }
        if (codePoint >= 0xD800 && codePoint <= 0xDBFF && position + 1 < text.size() &&
            text[position + 1] >= 0xDC00 && text[position + 1] <= 0xDFFF) {
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (text[++position] - 0xDC00);
        }
        const int byte = CodePointToWindows1252(codePoint);
        bytes += byte < 0 ? '?' : static_cast<char>(byte);
    }
}

void AppendStoryText(std::u16string_view text, bool utf8, std::string& bytes) {
    if (utf8)
        bytes += EncodeUtf8Bytes(text);
    else
        AppendWindows1252(text, bytes);
}

}  // namespace

std::string StoryTextToTags(const StoryBodyInput& input) {
    const MarkupSettings& settings = input.settings;
    std::size_t length = 0;
    for (const MarkupBox& box : input.boxes)
        length += box.text == nullptr ? 0 : box.text->Length();
    std::string bytes;
    bytes.reserve(length + length / 4 + 1024);
    const auto emit = [&bytes, &settings](std::u16string_view piece) {
        AppendStoryText(piece, settings.utf8, bytes);
    };
    for (int index = 0; index < kTextBoxCount; ++index) {
        const MarkupBox& box = input.boxes[static_cast<std::size_t>(index)];
        if (box.text == nullptr || box.text->Empty()) continue;
        WriteBoxElement(box, index, settings, emit);
    }
    // The body would be trimmed of blanks after each collapse of blank runs; it begins with
    // "<" and ends with a line end, so that trim never has anything to take.
    if (!input.signature.empty()) {
        bytes += input.initialsSignature ? "<Signature Type=\"I\">" : "<Signature>";
        AppendStoryText(Utf8ToUtf16(XmlEscape(input.signature)), settings.utf8, bytes);
        bytes += "</Signature>";
    }
    return bytes;
}

}  // namespace tessarin
