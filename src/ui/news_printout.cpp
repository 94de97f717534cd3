#include "ui/news_printout.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

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

}  // namespace

std::unique_ptr<QTextDocument> NewsItemDocument(const QString& headline, const QString& dateLine,
                                                const QString& text) {
    auto document = std::make_unique<QTextDocument>();
    QTextCursor cursor(document.get());
    InsertTitle(cursor, headline);
    QTextBlockFormat spaced;
    spaced.setBottomMargin(12);
    QTextCharFormat dated = TextFormat(9, false);
    dated.setFontItalic(true);
    cursor.insertBlock(spaced, dated);
    cursor.insertText(dateLine, dated);
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

}  // namespace tessarin
