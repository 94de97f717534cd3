#include "export/pdf_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "common/clock.h"
#include "common/file_io.h"
#include "common/windows1252.h"

namespace tessarin {
namespace {

constexpr std::size_t kInformation = 1;
constexpr std::size_t kCatalog = 2;
constexpr std::size_t kPageTree = 3;
constexpr std::size_t kFirstFont = 4;
constexpr std::size_t kEncoding = 18;
constexpr std::size_t kResources = 19;

constexpr std::array<const char*, 14> kBaseFonts = {
    "Courier",     "Courier-Oblique",   "Courier-Bold",   "Courier-BoldOblique",
    "Helvetica",   "Helvetica-Oblique", "Helvetica-Bold", "Helvetica-BoldOblique",
    "Times-Roman", "Times-Italic",      "Times-Bold",     "Times-BoldItalic",
    "Symbol",      "ZapfDingbats"};
constexpr std::int32_t kSymbolFont = 13;

struct PaperDimensions {
    int width;
    int height;
};

PaperDimensions Paper(std::int32_t size) {
    switch (size) {
        case 1:
            return {842, 1190};
        case 3:
            return {421, 595};
        case 4:
            return {792, 1224};
        case 5:
            return {1224, 792};
        case 6:
            return {612, 1008};
        case 7:
            return {396, 612};
        case 8:
            return {540, 720};
        default:
            return {595, 842};
    }
}

std::string PdfText(std::string_view utf8) {
    return PdfEscape(Utf8ToWindows1252(utf8));
}

std::string TwoDigits(int value) {
    char text[8];
    std::snprintf(text, sizeof text, "%02d", value);
    return text;
}

std::string CreationDate() {
    const LocalDateTime now = Now();
    return std::to_string(now.year) + TwoDigits(now.month) + TwoDigits(now.day) +
           TwoDigits(now.hour) + TwoDigits(now.minute) + TwoDigits(now.second);
}

std::string TenDigits(std::size_t value) {
    char text[24];
    std::snprintf(text, sizeof text, "%010zu", value);
    return text;
}

std::string Tf(std::int32_t fontNumber, std::int32_t fontSize) {
    return "/F" + std::to_string(fontNumber) + " " + std::to_string(fontSize) + " Tf";
}

}  // namespace

std::string PdfNumber(double value) {
    if (value == 0) value = 0;  // no "-0"
    char text[64];
    const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
    return std::string(text, result.ptr);
}

std::string PdfEscape(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        if (c == '(' || c == ')' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::size_t cVB2PDF::Append(std::string_view piece) {
    const std::size_t offset = bytes_.size();
    bytes_ += piece;
    bytes_ += "\r\n";
    return offset;
}

void cVB2PDF::WriteObject(std::size_t number, std::string_view body) {
    const std::size_t offset =
        Append(std::to_string(number) + " 0 obj\n<<\n" + std::string(body) + "\n>>\nendobj");
    if (offsets_.size() <= number) offsets_.resize(number + 1);
    offsets_[number] = offset;
}

void cVB2PDF::StartPDF() {
    const PaperDimensions paper = Paper(PaperSize);
    pageWidth_ = Landscape ? paper.height : paper.width;
    pageHeight_ = Landscape ? paper.width : paper.height;
    bytes_.clear();
    offsets_.assign(kResources + 1, 0);
    pages_.clear();
    lastObject_ = kResources;
    pageOpen_ = false;

    Append("%PDF-1.4");
    std::string information = "/CreationDate (D:" + CreationDate() + ")\n/Creator (" +
                              PdfText(Creator.empty() ? "Tessarin" : Creator) + ")\n/Producer (" +
                              PdfText(Producer.empty() ? "vb2pdf v1.2 Halvane" : Producer) + ")";
    const std::pair<const char*, const std::string*> optional[] = {
        {"Title", &Title}, {"Subject", &Subject}, {"Author", &Author}, {"Keywords", &Keywords}};
    for (const auto& [key, value] : optional) {
        if (!value->empty()) information += "\n/" + std::string(key) + " (" + PdfText(*value) + ")";
    }
    WriteObject(kInformation, information);

    for (std::size_t font = 0; font < kBaseFonts.size(); ++font) {
        const std::string number = std::to_string(font + 1);
        std::string body = "/Type /Font\n/Subtype /Type1\n/Name /F" + number;
        if (static_cast<std::int32_t>(font + 1) != kSymbolFont) body += "\n/Encoding 18 0 R";
        body += "\n/BaseFont /" + std::string(kBaseFonts[font]);
        WriteObject(kFirstFont + font, body);
    }
    WriteObject(kEncoding, "/Type /Encoding\n/BaseEncoding /WinAnsiEncoding");

    std::string fonts = "  /Font <<";
    for (std::size_t font = 0; font < kBaseFonts.size(); ++font) {
        fonts +=
            " /F" + std::to_string(font + 1) + " " + std::to_string(kFirstFont + font) + " 0 R";
    }
    WriteObject(kResources, fonts + " >>\n  /ProcSet [ /PDF /Text ]");
    NewPage();
}

void cVB2PDF::NewPage() {
    if (pageOpen_) ClosePage();
    const std::size_t page = ++lastObject_;
    WriteObject(page, "/Type /Page\n/Parent 3 0 R\n/Resources 19 0 R\n/Contents " +
                          std::to_string(page + 1) + " 0 R");
    pages_.push_back(page);

    const std::size_t content = ++lastObject_;
    const std::string head = std::to_string(content) + " 0 obj\n<<\n/Length " +
                             std::to_string(content + 1) + " 0 R\n>>\nstream\nBT";
    const std::size_t offset = Append(head);
    if (offsets_.size() <= content) offsets_.resize(content + 1);
    offsets_[content] = offset;
    streamStart_ = offset + head.size() - 2;  // the stream begins with its "BT"
    pageOpen_ = true;

    Append(Tf(FontNumber, FontSize));
    SetOrigin(MarginLeft, pageHeight_ - MarginTop, 0);
}

void cVB2PDF::ClosePage() {
    const std::size_t offset = Append("ET\nendstream\nendobj");
    // The stream runs from its "BT" to the line end after "ET", right before "endstream".
    const std::size_t length = offset + 3 - streamStart_;
    const std::size_t number = ++lastObject_;
    const std::size_t lengthOffset =
        Append(std::to_string(number) + " 0 obj\n" + std::to_string(length) + "\nendobj");
    if (offsets_.size() <= number) offsets_.resize(number + 1);
    offsets_[number] = lengthOffset;
    pageOpen_ = false;
}

void cVB2PDF::SetOrigin(double x, double y, double angle) {
    constexpr double kPi = 3.141592654;
    const double radians = angle * kPi / 180;
    const double a = std::cos(radians), b = std::sin(radians);
    Append(PdfNumber(a) + " " + PdfNumber(b) + " " + PdfNumber(-b) + " " + PdfNumber(a) + " " +
           PdfNumber(x) + " " + PdfNumber(y) + " Tm");
    Append(std::to_string(Leading) + " TL");
}

void cVB2PDF::VerticalSpacing(std::int32_t leading) {
    Append(std::to_string(leading) + " TL");
}

void cVB2PDF::WritePDF(std::string_view text, bool newLine, std::int32_t fontNumber,
                       std::int32_t fontSize) {
    std::string piece;
    if ((fontNumber != 0 && fontNumber != FontNumber) || (fontSize != 0 && fontSize != FontSize)) {
        if (fontNumber != 0) FontNumber = fontNumber;
        if (fontSize != 0) FontSize = fontSize;
        piece = Tf(FontNumber, FontSize) + "\n";
    }
    piece += newLine ? std::string(" T*") : "(" + PdfEscape(text) + ") Tj";
    Append(piece);
}

bool cVB2PDF::EndPDF() {
    if (pageOpen_) ClosePage();
    offsets_[kCatalog] =
        Append("2 0 obj\n<<\n/Type /Catalog\n/Pages 3 0 R\n/PageLayout /OneColumn\n>>\nendobj");
    std::string kids;
    for (const std::size_t page : pages_)
        kids += std::to_string(page) + " 0 R ";
    offsets_[kPageTree] =
        Append("3 0 obj\n<<\n/Type /Pages\n/Count " + std::to_string(pages_.size()) +
               "\n/MediaBox [ 0 0 " + PdfNumber(pageWidth_) + " " + PdfNumber(pageHeight_) +
               " ]\n/Kids [ " + kids + "]\n>>\nendobj");

    // The table has an entry for every number from 0 to the last object, so its count and
    // the trailer's /Size are both one more than the last object's number. Each entry is
    // twenty bytes ending in CR LF, as readers require.
    const std::string entries = std::to_string(lastObject_ + 1);
    std::string table = "xref\n0 " + entries + "\n0000000000 65535 f";
    for (std::size_t number = 1; number <= lastObject_; ++number) {
        table += "\r\n" + TenDigits(offsets_[number]) + " 00000 n";
    }
    const std::size_t tableOffset = Append(table);
    Append("trailer\n<<\n/Size " + entries + "\n/Root 2 0 R\n/Info 1 0 R\n>>\nstartxref\n" +
           std::to_string(tableOffset) + "\n%%EOF");
    return WriteFileAtomically(FileName, bytes_);
}

}  // namespace tessarin
