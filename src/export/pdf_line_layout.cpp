#include "export/pdf_line_layout.h"

#include "common/windows1252.h"
#include "editing/non_breaking_mark.h"
#include "export/pdf_font_widths.h"

namespace tessarin {

std::int32_t PdfFontNumberFor(const CharFormat& format) {
    const std::int32_t family = format.fontName.starts_with("Times") ? 9 : 5;
    return family + (format.bold ? 2 : 0) + (format.italic ? 1 : 0);
}

unsigned char PdfByteFor(char16_t unit) {
    if (unit == kNonBreakingMark) return 0xA0;
    const int byte = CodePointToWindows1252(unit);
    return byte < 0 ? '?' : static_cast<unsigned char>(byte);
}

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::vector<std::size_t> WrapDraftLines(const StyledText& draft, double width) {
    std::vector<std::size_t> starts{0};
    const std::u16string text = draft.Text();
    double lineWidth = 0;
    std::size_t breakAt = 0;  // after the last blank of the line; 0 when none yet
    double widthAtBreak = 0;  // the line's width up to there
    for (const FormatRun& run : draft.Runs()) {
        const PdfFontWidths& widths = kPdfStandardFontWidths[PdfFontNumberFor(run.format) - 1];
        const double scale = run.format.fontSize / 1000.0;
        for (std::size_t i = run.start; i < run.start + run.length; ++i) {
            const char16_t c = text[i];
            if (c == u'\n') {
                starts.push_back(i + 1);
                lineWidth = 0;
                breakAt = 0;
                continue;
            }
            if (c == u'\r' || IsLowSurrogate(c)) continue;
            const double advance = widths[PdfByteFor(c)] * scale;
            if (c == u' ') {
                lineWidth += advance;
                breakAt = i + 1;
                widthAtBreak = lineWidth;
                continue;
            }
            if (lineWidth + advance > width && i > starts.back()) {
                if (breakAt > starts.back()) {
                    starts.push_back(breakAt);
                    lineWidth -= widthAtBreak;
                } else {
                    starts.push_back(i);
                    lineWidth = 0;
                }
                breakAt = 0;
            }
            lineWidth += advance;
        }
    }
    if (starts.back() == text.size() && starts.size() > 1) starts.pop_back();
    return starts;
}

}  // namespace tessarin
