#pragma once

#include <QColor>
#include <QString>
#include <QTextCharFormat>
#include <cstddef>
#include <string_view>

#include "text/styled_text.h"

class QTextDocument;

namespace tessarin {

// Colours as the core keeps them (0x00BBGGRR, or a system colour role) on screen and back.
// A system colour takes the application palette's colour for that role.
QColor ToQColor(OleColour colour);
OleColour ToOleColour(const QColor& colour);

// A character's attributes as a Qt character format and back. The font name and size stay
// unset when the character has the box's own. A note's anchor is marked by a property of its
// own, the raised or lowered offset too; a raised character is drawn a third of its height
// higher, in the smaller size the core gave it. A wavy underline shows over a plain one.
QTextCharFormat ToQtFormat(const CharFormat& format);
CharFormat ToCharFormat(const QTextCharFormat& format);

// The length in the document of a stretch of box text: a CR LF pair is one paragraph
// separator there.
std::size_t DocumentLength(std::u16string_view text);

// A stretch of a box's text that an edit replaced: [start, start + oldLength) of the text as
// it was became [start, start + newLength).
struct ReplacedStretch {
    std::size_t start = 0;
    std::size_t oldLength = 0;
    std::size_t newLength = 0;
};

// Shows a text box's styled text in a QTextDocument and keeps it in step, change by change.
//
// Positions: the core counts a line break as CR LF, two units; the document has one
// paragraph separator. A document position p in paragraph n is the box position p + n, found
// through QTextBlock::blockNumber() in O(log n). The way back is a binary search over the
// paragraphs; the typing path never needs it, for it knows the document range it edits.
//
// The bridge keeps a copy of what the document shows. An edit the caller made through the
// core is shown by replacing the edited stretch alone (ShowEdit); a change made elsewhere (an
// undo, a command, a story read) is found by comparing the copy with the box's text from
// both ends, and only the stretch between the common start and the common end is replaced
// (Show). A line break the core holds as a lone CR or LF is drawn as a line separator, so
// that every paragraph separator stands for exactly one CR LF pair.
class StyledTextBridge {
  public:
    explicit StyledTextBridge(QTextDocument& document);

    // Replaces the whole document by text.
    void Load(const StyledText& text);

    // Brings the document in line with text, replacing only what differs.
    void Show(const StyledText& text);

    // Shows an edit of the box, whose document range [documentStart, documentEnd) is the
    // stretch's old range.
    void ShowEdit(const StyledText& text, const ReplacedStretch& stretch, int documentStart,
                  int documentEnd);

    std::size_t ToBoxPosition(int documentPosition) const;
    int ToDocumentPosition(std::size_t boxPosition) const;

    // The document read back as styled text: each paragraph separator a CR LF pair in the
    // separator's format.
    StyledText Read() const;

    // True when the document no longer shows the text it was given: something other than
    // the bridge changed it.
    bool Diverged() const;

    // True while the bridge itself changes the document.
    bool Changing() const { return changing_; }

  private:
    ReplacedStretch WithWholeLineBreaks(ReplacedStretch stretch) const;
    void Commit(const StyledText& text, const ReplacedStretch& stretch, int documentStart,
                int documentEnd);
    void Replace(int documentStart, int documentEnd, const StyledText& text, std::size_t start,
                 std::size_t length);

    QTextDocument& document_;
    StyledText shown_;
    bool changing_ = false;
};

}  // namespace tessarin
