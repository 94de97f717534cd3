#include "ui/printouts.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include "export/story_print.h"
#include "ui/styled_text_bridge.h"

namespace tessarin {
namespace {

QTextCharFormat TextFormat(qreal points, bool bold) {
    QTextCharFormat format;
    format.setFontPointSize(points);
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    return format;
}

// The title of a printout, in large bold, with a space under it.
void InsertTitle(QTextCursor& cursor, const QString& title) {
    QTextBlockFormat block;
    block.setBottomMargin(6);
    cursor.setBlockFormat(block);
    cursor.insertText(title, TextFormat(16, true));
}

// The line under a title, in small italics, with a space under it.
void InsertDetails(QTextCursor& cursor, const QString& details) {
    QTextBlockFormat spaced;
    spaced.setBottomMargin(12);
    QTextCharFormat small = TextFormat(9, false);
    small.setFontItalic(true);
    cursor.insertBlock(spaced, small);
    cursor.insertText(details, small);
}

}  // namespace

std::unique_ptr<QTextDocument> NewsItemDocument(const QString& headline, const QString& dateLine,
                                                const QString& text) {
    auto document = std::make_unique<QTextDocument>();
    QTextCursor cursor(document.get());
    InsertTitle(cursor, headline);
    InsertDetails(cursor, dateLine);
    QString body = text;
    body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    cursor.insertBlock(QTextBlockFormat(), TextFormat(11, false));
    cursor.insertText(body, TextFormat(11, false));
    return document;
}

std::unique_ptr<QTextDocument> NewsListDocument(const QString& title, const QStringList& headers,
                                                const QList<QStringList>& rows) {
    auto document = std::make_unique<QTextDocument>();
    QTextCursor cursor(document.get());
    InsertTitle(cursor, title);
    if (headers.isEmpty()) return document;
    QTextTableFormat grid;
    grid.setHeaderRowCount(1);
    grid.setCellPadding(2);
    grid.setCellSpacing(0);
    grid.setBorder(0.5);
    grid.setBorderCollapse(true);
    QTextTable* table = cursor.insertTable(static_cast<int>(rows.size()) + 1,
                                           static_cast<int>(headers.size()), grid);
    const auto fill = [table](int row, const QStringList& cells, const QTextCharFormat& format) {
        for (int column = 0; column < cells.size() && column < table->columns(); ++column)
            table->cellAt(row, column).firstCursorPosition().insertText(cells[column], format);
    };
    fill(0, headers, TextFormat(9, true));
    for (int row = 0; row < rows.size(); ++row)
        fill(row + 1, rows[row], TextFormat(9, false));
    return document;
}

std::unique_ptr<QTextDocument> StoryDocument(const StoryPrintout& printout) {
    auto document = std::make_unique<QTextDocument>();
    StyledTextBridge(*document).Load(printout.draft.text);
    if (printout.draft.signatureStart != std::string::npos) {
        const std::u16string before = printout.draft.text.Text(0, printout.draft.signatureStart);
        QTextCursor signature(document->findBlock(static_cast<int>(DocumentLength(before))));
        QTextBlockFormat right = signature.blockFormat();
        right.setAlignment(Qt::AlignRight);
        signature.setBlockFormat(right);
    }
    // The heading goes in blocks of its own before the story's first paragraph.
    QTextCursor cursor(document.get());
    cursor.insertBlock();
    cursor.movePosition(QTextCursor::Start);
    cursor.setBlockFormat(QTextBlockFormat());
    InsertTitle(cursor, QString::fromStdString(printout.title));
    InsertDetails(cursor, QString::fromStdString(printout.details));
    return document;
}

}  // namespace tessarin
