#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// Replaces exactly these letters, and no others: à â ä ã → a; ç → c; é è ê ë → e; î ï → i;
// ñ → n; ô ö õ → o; ù û ü → u; Ä Â Á → A; Ç → C; É Ê Ë È → E; Î Ï → I; Ô Ö Õ → O;
// Ü Û Ù → U. á, í, ó, ú, À, Ã and Ñ stay as they are. Text is UTF-8.
std::string FoldAccents(std::string_view text);

}  // namespace tessarin
