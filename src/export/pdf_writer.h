#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// Writes a PDF 1.4 file with the 14 standard fonts, unembedded, and text only. Objects keep
// fixed numbers: 1 the information dictionary, 2 the catalog and 3 the page tree (both
// written last), 4 to 17 the fonts /F1 to /F14, 18 the WinAnsi encoding, 19 the resources,
// then three objects for each page: the page, its content stream and the stream's length.
//
// The file is built as a sequence of pieces, each ending in CR LF, with LF between the
// lines inside a piece; a piece's offset is the length of what stands before it. The whole
// file is written at EndPDF, in one replacement of the target.
//
// Text given to WritePDF is in Windows-1252 bytes, as the fonts' encoding reads them.
class cVB2PDF {
  public:
    std::filesystem::path FileName;
    std::string Producer;  // "vb2pdf v1.2 Halvane" when empty
    std::string Title;     // these four are left out when empty
    std::string Subject;
    std::string Author;
    std::string Creator;  // "Tessarin" when empty
    std::string Keywords;
    std::int32_t PaperSize = 2;  // 1 A3, 2 A4, 3 A5, 4 tabloid, 5 ledger, 6 legal, 7, 8
    std::int32_t Landscape = 0;
    std::int32_t MarginLeft = 50;
    std::int32_t MarginTop = 50;
    std::int32_t FontSize = 10;
    std::int32_t FontNumber = 1;
    std::int32_t Leading = 12;

    // The header, the information dictionary (texts are UTF-8, written in Windows-1252),
    // the fonts, the encoding, the resources, and the first page.
    void StartPDF();
    // Closes the last page, writes the catalog, the page tree, the cross-reference table
    // and the trailer, and writes the file. False when the file cannot be written.
    bool EndPDF();
    // Closes the open page and opens a new one, its text origin at the top left margin.
    void NewPage();
    // Shows text in the current line, or with newLine moves to the next line. A font number
    // or size that is not zero and differs from the current one is selected first.
    void WritePDF(std::string_view text, bool newLine, std::int32_t fontNumber,
                  std::int32_t fontSize);
    // Sets the text matrix: rotation by angle degrees, origin at x, y; then the leading.
    void SetOrigin(double x, double y, double angle);
    // Sets the distance between lines.
    void VerticalSpacing(std::int32_t leading);

    // The page size in points, fixed by StartPDF.
    double PageWidth() const { return pageWidth_; }
    double PageHeight() const { return pageHeight_; }
    std::size_t PageCount() const { return pages_.size(); }

  private:
    std::size_t Append(std::string_view piece);
    void WriteObject(std::size_t number, std::string_view body);
    void ClosePage();

    double pageWidth_ = 0;
    double pageHeight_ = 0;
    std::string bytes_;
    std::size_t streamStart_ = 0;
    std::size_t lastObject_ = 19;       // the highest object number written so far
    std::vector<std::size_t> offsets_;  // by object number; [0] unused
    std::vector<std::size_t> pages_;    // page object numbers, in page order
    bool pageOpen_ = false;
};

// A number as the writer prints it: a decimal point, no exponent, as many digits as the
// value needs, and no blank in front ("1", "-0.5", "792").
std::string PdfNumber(double value);

// Text inside a PDF string: a backslash before "(", ")" and "\".
std::string PdfEscape(std::string_view text);

}  // namespace tessarin
