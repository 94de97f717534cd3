#include "ui/story_preview.h"

#include <QTextDocument>
#include <QTextEdit>

#include "common/xml_document.h"
#include "search/search_query.h"
#include "story/story_preview_text.h"
#include "ui/styled_text_bridge.h"
#include "ui/window_state_binding.h"

namespace tessarin {

void ShowStoryPreview(QTextEdit& preview, const std::filesystem::path& story,
                      const Preferences& preferences, const SearchQuery* query) {
    preview.clear();
    preview.setExtraSelections({});
    XmlDocument document;
    if (!document.LoadFile(story)) return;
    StyledTextBridge(*preview.document())
        .Load(StoryPreviewText(document.DocumentElement(), preferences));
    if (query == nullptr || query->text.empty()) return;
    QTextCharFormat highlight;
    highlight.setBackground(Qt::yellow);
    const QTextDocument::FindFlags flags =
        query->matchCase ? QTextDocument::FindCaseSensitively : QTextDocument::FindFlags();
    const std::vector<std::string> whole{query->text};
    const std::vector<std::string>& words =
        query->op == SearchOperator::ExactExpression ? whole : query->words;
    QList<QTextEdit::ExtraSelection> marks;
    for (const std::string& word : words) {
        const QString text = ToQString(word);
        for (QTextCursor found = preview.document()->find(text, 0, flags); !found.isNull();
             found = preview.document()->find(text, found, flags))
            marks.append({found, highlight});
    }
    preview.setExtraSelections(marks);
}

}  // namespace tessarin
