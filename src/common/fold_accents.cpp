#include "common/fold_accents.h"

#include <string_view>

namespace tessarin {

namespace {

// The plain letter for each character from U+00C0 to U+00FF (UTF-8: 0xC3 then 0x80 to
// 0xBF), "." where the character is kept as it is.
constexpr std::string_view kFoldedLetters =
    ".AA.A..C"   // À Á Â Ã Ä Å Æ Ç
    "EEEE..II"   // È É Ê Ë Ì Í Î Ï
    "....OOO."   // Ð Ñ Ò Ó Ô Õ Ö ×
    ".U.UU..."   // Ø Ù Ú Û Ü Ý Þ ß
    "a.aaa..c"   // à á â ã ä å æ ç
    "eeee..ii"   // è é ê ë ì í î ï
    ".n..ooo."   // ð ñ ò ó ô õ ö ÷
    ".u.uu...";  // ø ù ú û ü ý þ ÿ

}  // namespace

std::string FoldAccents(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (static_cast<unsigned char>(text[index]) == 0xC3 && index + 1 < text.size()) {
            const auto second = static_cast<unsigned char>(text[index + 1]);
            if (second >= 0x80 && second <= 0xBF && kFoldedLetters[second - 0x80] != '.') {
                folded += kFoldedLetters[second - 0x80];
                ++index;
                continue;
            }
        }
        folded += text[index];
    }
    return folded;
}

}  // namespace tessarin
