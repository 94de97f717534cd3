#include "attachments/short_label.h"

#include "common/utf8.h"

namespace tessarin {
namespace {

void ReplaceAll(std::u16string& text, std::u16string_view from, char16_t to) {
    for (std::size_t found = text.find(from); found != std::u16string::npos;
         found = text.find(from, found + 1)) {
        text.replace(found, from.size(), 1, to);
    }
}

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

}  // namespace

std::string ShortLabel(std::string_view text, std::size_t maxLength) {
    std::u16string label = Utf8ToUtf16(text);
    for (std::u16string_view lineBreak : {u"\\n", u"\r\n", u"\r", u"\n", u"\t"}) {
        ReplaceAll(label, lineBreak, u' ');
    }
    if (label.size() > maxLength) {
        std::size_t cut = maxLength;
        // Never split a character outside the Basic Multilingual Plane.
        if (cut > 0 && IsHighSurrogate(label[cut - 1])) --cut;
        label.resize(cut);
        const std::size_t lastBlank = label.rfind(u' ');
        if (lastBlank != std::u16string::npos) label.resize(lastBlank);
        return Utf16ToUtf8(label) + " [...]";
    }
    const std::size_t first = label.find_first_not_of(u' ');
    if (first == std::u16string::npos) return {};
    return Utf16ToUtf8(label.substr(first, label.find_last_not_of(u' ') - first + 1));
}

}  // namespace tessarin
