#include "ui/styled_text_bridge.h"

#include <QGuiApplication>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <vector>

#include "config/colours.h"

namespace tessarin {
namespace {

// Properties without a Qt attribute of their own.
constexpr int kProtectedProperty = QTextFormat::UserProperty + 1;
constexpr int kOffsetProperty = QTextFormat::UserProperty + 2;

// How far a raised or lowered character moves, in percent of its height.
constexpr qreal kRaisedBaseline = 33;
constexpr qreal kLoweredBaseline = -20;

// The system colour roles the preferences use, with the palette role that stands for each.
struct SystemRole {
    OleColour colour;
    QPalette::ColorRole role;
};
constexpr SystemRole kSystemRoles[] = {
    {kWindowBackground, QPalette::Base},
    {kSelectionBackground, QPalette::Highlight},
    {kButtonFace, QPalette::Button},
    {kButtonText, QPalette::ButtonText},
};

constexpr char16_t kCarriageReturn = u'\r';
constexpr char16_t kLineFeed = u'\n';

// Units that the document would take for a paragraph separator or a frame mark.
bool BreaksParagraph(char16_t unit) {
    return unit == kCarriageReturn || unit == kLineFeed || unit == QChar::ParagraphSeparator ||
           unit == 0xFDD0 || unit == 0xFDD1;
}

// The document text of text[index], or of the CR LF pair starting there, which it steps over.
QChar DisplayUnit(std::u16string_view text, std::size_t& index) {
    const char16_t unit = text[index];
    if (unit == kCarriageReturn && index + 1 < text.size() && text[index + 1] == kLineFeed) {
        ++index;
        return QChar::ParagraphSeparator;
    }
    return BreaksParagraph(unit) ? QChar(QChar::LineSeparator) : QChar(unit);
}

// The common start of two texts in both units and formats.
std::size_t FormatsAlike(const std::vector<FormatRun>& a, const std::vector<FormatRun>& b) {
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t position = 0;
    while (i < a.size() && j < b.size()) {
        if (!(a[i].format == b[j].format)) return position;
        const std::size_t endA = a[i].start + a[i].length;
        const std::size_t endB = b[j].start + b[j].length;
        position = std::min(endA, endB);
        if (endA == position) ++i;
        if (endB == position) ++j;
    }
    return position;
}

// The runs counted from the end of a text of the given length.
std::vector<FormatRun> FromTheEnd(std::vector<FormatRun> runs, std::size_t length) {
    std::reverse(runs.begin(), runs.end());
    for (FormatRun& run : runs)
        run.start = length - run.start - run.length;
    return runs;
}

// The stretch between the common start and the common end of two texts.
ReplacedStretch Difference(const StyledText& old, const StyledText& fresh) {
    const std::u16string a = old.Text();
    const std::u16string b = fresh.Text();
    const std::vector<FormatRun> oldRuns = old.Runs();
    const std::vector<FormatRun> freshRuns = fresh.Runs();
    const std::size_t common = std::min(a.size(), b.size());
    const auto prefixEnd = std::mismatch(a.begin(), a.begin() + common, b.begin()).first;
    const std::size_t prefix =
        std::min<std::size_t>(prefixEnd - a.begin(), FormatsAlike(oldRuns, freshRuns));
    const auto suffixEnd =
        std::mismatch(a.rbegin(), a.rbegin() + (common - prefix), b.rbegin()).first;
    const std::size_t suffix = std::min<std::size_t>(
        suffixEnd - a.rbegin(),
        FormatsAlike(FromTheEnd(oldRuns, a.size()), FromTheEnd(freshRuns, b.size())));
    return {prefix, a.size() - prefix - suffix, b.size() - prefix - suffix};
}

}  // namespace

QColor ToQColor(OleColour colour) {
    if (IsSystemColour(colour)) {
        const auto* system =
            std::find_if(std::begin(kSystemRoles), std::end(kSystemRoles),
                         [colour](const SystemRole& r) { return r.colour == colour; });
        const QPalette::ColorRole role =
            system == std::end(kSystemRoles) ? QPalette::WindowText : system->role;
        return QGuiApplication::palette().color(role);
    }
    const ColourComponents components = SplitColour(colour);
    return QColor(components.red, components.green, components.blue);
}

OleColour ToOleColour(const QColor& colour) {
    return Rgb(colour.red(), colour.green(), colour.blue());
}

QTextCharFormat ToQtFormat(const CharFormat& format) {
    QTextCharFormat qt;
    qt.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
    qt.setFontItalic(format.italic);
    qt.setUnderlineStyle(format.waveUnderline ? QTextCharFormat::WaveUnderline
                         : format.underline   ? QTextCharFormat::SingleUnderline
                                              : QTextCharFormat::NoUnderline);
    qt.setForeground(ToQColor(format.colour));
    if (format.highlighted) qt.setBackground(ToQColor(format.highlight));
    if (format.isProtected) qt.setProperty(kProtectedProperty, true);
    if (format.offset != 0) {
        qt.setProperty(kOffsetProperty, format.offset);
        qt.setBaselineOffset(format.offset > 0 ? kRaisedBaseline : kLoweredBaseline);
    }
    if (!format.fontName.empty()) {
        qt.setFontFamilies(QStringList{QString::fromStdString(format.fontName)});
    }
    if (format.fontSize != 0) qt.setFontPointSize(format.fontSize);
    return qt;
}

CharFormat ToCharFormat(const QTextCharFormat& qt) {
    CharFormat format;
    format.bold = qt.fontWeight() >= QFont::Bold;
    format.italic = qt.fontItalic();
    format.underline = qt.underlineStyle() == QTextCharFormat::SingleUnderline;
    format.waveUnderline = qt.underlineStyle() == QTextCharFormat::WaveUnderline;
    format.isProtected = qt.boolProperty(kProtectedProperty);
    format.offset = qt.intProperty(kOffsetProperty);
    if (qt.hasProperty(QTextFormat::ForegroundBrush)) {
        format.colour = ToOleColour(qt.foreground().color());
    }
    format.highlighted = qt.hasProperty(QTextFormat::BackgroundBrush);
    if (format.highlighted) format.highlight = ToOleColour(qt.background().color());
    if (qt.hasProperty(QTextFormat::FontFamilies)) {
        format.fontName = qt.fontFamilies().toStringList().value(0).toStdString();
    }
    if (qt.hasProperty(QTextFormat::FontPointSize)) {
        format.fontSize = static_cast<int>(qt.fontPointSize());
    }
    return format;
}

std::size_t DocumentLength(std::u16string_view text) {
    std::size_t length = 0;
    for (std::size_t index = 0; index < text.size(); ++index, ++length)
        DisplayUnit(text, index);
    return length;
}

StyledTextBridge::StyledTextBridge(QTextDocument& document) : document_(document) {}

void StyledTextBridge::Load(const StyledText& text) {
    Replace(0, document_.characterCount() - 1, text, 0, text.Length());
    shown_ = text;
}

void StyledTextBridge::Show(const StyledText& text) {
    const ReplacedStretch stretch = WithWholeLineBreaks(Difference(shown_, text));
    if (stretch.oldLength == 0 && stretch.newLength == 0) return;
    Commit(text, stretch, ToDocumentPosition(stretch.start),
           ToDocumentPosition(stretch.start + stretch.oldLength));
}

void StyledTextBridge::ShowEdit(const StyledText& text, const ReplacedStretch& edit,
                                int documentStart, int documentEnd) {
    // The edit's ends lie between whole line breaks, so that a unit the stretch takes in is
    // a lone CR or LF: one position in the document.
    const ReplacedStretch stretch = WithWholeLineBreaks(edit);
    const auto before = static_cast<int>(edit.start - stretch.start);
    const auto after = static_cast<int>(stretch.oldLength - edit.oldLength) - before;
    Commit(text, stretch, documentStart - before, documentEnd + after);
}

ReplacedStretch StyledTextBridge::WithWholeLineBreaks(ReplacedStretch stretch) const {
    // A CR before the stretch or an LF after it may belong to a pair that the stretch cuts,
    // or pair with what the change put in: the stretch takes them in.
    if (stretch.start > 0 && shown_.CharAt(stretch.start - 1) == kCarriageReturn) {
        --stretch.start;
        ++stretch.oldLength;
        ++stretch.newLength;
    }
    const std::size_t oldEnd = stretch.start + stretch.oldLength;
    if (oldEnd < shown_.Length() && shown_.CharAt(oldEnd) == kLineFeed) {
        ++stretch.oldLength;
        ++stretch.newLength;
    }
    return stretch;
}

void StyledTextBridge::Commit(const StyledText& text, const ReplacedStretch& stretch,
                              int documentStart, int documentEnd) {
    Replace(documentStart, documentEnd, text, stretch.start, stretch.newLength);
    shown_.Erase(stretch.start, stretch.oldLength);
    shown_.Insert(stretch.start, text.Slice(stretch.start, stretch.newLength));
}

void StyledTextBridge::Replace(int documentStart, int documentEnd, const StyledText& text,
                               std::size_t start, std::size_t length) {
    changing_ = true;
    QTextCursor cursor(&document_);
    cursor.beginEditBlock();
    cursor.setPosition(documentStart);
    cursor.setPosition(documentEnd, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    const std::u16string units = text.Text(start, length);
    std::size_t index = 0;
    QString piece;
    text.ForEachRun(start, length, [&](const FormatRun& run) {
        piece.clear();
        for (const std::size_t end = run.start + run.length - start; index < end; ++index)
            piece += DisplayUnit(units, index);
        if (!piece.isEmpty()) cursor.insertText(piece, ToQtFormat(run.format));
    });
    cursor.endEditBlock();
    changing_ = false;
}

std::size_t StyledTextBridge::ToBoxPosition(int documentPosition) const {
    const int position = std::clamp(documentPosition, 0, document_.characterCount() - 1);
    return static_cast<std::size_t>(position + document_.findBlock(position).blockNumber());
}

int StyledTextBridge::ToDocumentPosition(std::size_t boxPosition) const {
    // The last paragraph whose box position is at most boxPosition: paragraph n starts at
    // document position P and box position P + n.
    int low = 0;
    int high = document_.blockCount() - 1;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        const auto start =
            static_cast<std::size_t>(document_.findBlockByNumber(middle).position() + middle);
        if (start <= boxPosition) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    const auto position = static_cast<std::int64_t>(boxPosition) - low;
    return static_cast<int>(std::min<std::int64_t>(position, document_.characterCount() - 1));
}

StyledText StyledTextBridge::Read() const {
    StyledText text;
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
        if (block != document_.begin()) {
            text.Insert(text.Length(), u"\r\n", ToCharFormat(block.charFormat()));
        }
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            text.Insert(text.Length(), fragment.fragment().text().toStdU16String(),
                        ToCharFormat(fragment.fragment().charFormat()));
        }
    }
    return text;
}

bool StyledTextBridge::Diverged() const {
    return !(Read() == shown_);
}

}  // namespace tessarin
