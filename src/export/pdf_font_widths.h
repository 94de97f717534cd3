#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessarin {

// The advance widths, in thousandths of the font size, of the 14 standard fonts that every
// PDF reader knows without embedding, indexed by font number less one (F1 Courier to F14
// ZapfDingbats) and by byte: the WinAnsi encoding's bytes for the first twelve, the fonts' own
// encodings for Symbol and ZapfDingbats. A byte without a glyph has width 0.
inline constexpr std::size_t kPdfStandardFontCount = 14;
using PdfFontWidths = std::array<std::uint16_t, 256>;
extern const std::array<PdfFontWidths, kPdfStandardFontCount> kPdfStandardFontWidths;

}  // namespace tessarin
