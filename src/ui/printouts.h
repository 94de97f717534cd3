#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

class QTextDocument;

namespace tessarin {

struct StoryPrintout;

// The printed page of a news item: its headline, under it the line of its date and slug,
// then its text, one paragraph a line.
std::unique_ptr<QTextDocument> NewsItemDocument(const QString& headline, const QString& dateLine,
                                                const QString& text);

// The printed news list: its title, then a table of the rows under the columns' captions.
std::unique_ptr<QTextDocument> NewsListDocument(const QString& title, const QStringList& headers,
                                                const QList<QStringList>& rows);

// The printed story: its name as title, under it the line of its details, then its draft
// with the draft's fonts and formats, the signature aligned right.
std::unique_ptr<QTextDocument> StoryDocument(const StoryPrintout& printout);

}  // namespace tessarin
