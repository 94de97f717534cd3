#include "linguistics/letter_rows.h"

#include "text/styled_text_case.h"

namespace tessarin {

int LetterRow(std::u16string_view word) {
    if (word.empty()) return kLetterRows - 1;
    const int row = static_cast<int>(ToUpperUnit(word.front())) - 'A';
    return row >= 0 && row < kLetterRows - 1 ? row : kLetterRows - 1;
}

}  // namespace tessarin
