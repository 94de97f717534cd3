#pragma once

#include <string_view>

namespace tessarin {

// The word tables are divided by first letter: rows 0 to 25 for "A" to "Z" (either case),
// row 26 for everything else ("Été", "1er", "Œuvre").
inline constexpr int kLetterRows = 27;

int LetterRow(std::u16string_view word);

}  // namespace tessarin
