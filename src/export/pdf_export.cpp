#include "export/pdf_export.h"

#include <cmath>
#include <string>
#include <vector>

#include "common/utf8.h"
#include "export/pdf_line_layout.h"
#include "export/pdf_writer.h"
#include "export/rtf_story_draft.h"
#include "metadata/keyword_categories.h"

namespace tessarin {
namespace {

// The vertical position past which the next line goes to a new page.
constexpr int kPageFoot = 750;

std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : "; ") + text;
    return joined;
}

int LineDistance(int fontSize) {
    return static_cast<int>(std::lround(fontSize * 1.3));
}

void DescribeStory(const EditorSession& session, cVB2PDF& pdf) {
    const StoryRecord& story = session.story;
    for (std::size_t box = 0; box + 1 < kTextBoxCount && pdf.Title.empty(); ++box)
        pdf.Title = Utf16ToUtf8(story.boxes[box].Text());
    pdf.Author = session.configuration.identity.author;
    pdf.Creator = pdf.Producer = std::string("Tessarin ") + TESSARIN_VERSION;
    std::vector<std::string> subjects;
    for (const TaxonomyTopic& topic : story.taxonomy)
        subjects.push_back(topic.text);
    pdf.Subject = Joined(subjects);
    if (session.configuration.keywordsOn) {
        std::vector<std::string> keywords;
        for (const TreeNode* category : KeywordCategories(session.window)) {
            for (const StoryKeyword* keyword : KeywordsOfCategory(story, *category))
                keywords.push_back(keyword->text);
        }
        pdf.Keywords = Joined(keywords);
    }
}

// Feeds the writer the draft's runs of equal font, line by line, starting new pages as the
// lines reach the page's foot.
class DraftFeeder {
  public:
    DraftFeeder(cVB2PDF& pdf, const CharFormat& first)
        : pdf_(pdf), fontNumber_(PdfFontNumberFor(first)), fontSize_(first.fontSize) {
        pdf_.VerticalSpacing(LineDistance(fontSize_));
    }

    void NextLine() {
        WritePending();
        pdf_.WritePDF({}, true, 0, 0);
        y_ += LineDistance(fontSize_);
        if (y_ > kPageFoot) {
            pdf_.NewPage();
            pdf_.VerticalSpacing(LineDistance(fontSize_));
            y_ = 0;
        }
    }

    void TakeFormat(const CharFormat& format) {
        if (format.fontSize != fontSize_) {
            WritePending();
            fontSize_ = format.fontSize;
            pdf_.VerticalSpacing(LineDistance(fontSize_));
        }
        const std::int32_t fontNumber = PdfFontNumberFor(format);
        if (fontNumber != fontNumber_) {
            WritePending();
            fontNumber_ = fontNumber;
        }
    }

    void Add(std::u16string_view text) {
        for (const char16_t c : text) {
            if (c == u'\r' || c == u'\n' || IsLowSurrogate(c)) continue;
            pending_ += static_cast<char>(PdfByteFor(c));
        }
    }

    void WritePending() {
        if (pending_.empty()) return;
        pdf_.WritePDF(pending_, false, fontNumber_, fontSize_);
        pending_.clear();
    }

  private:
    cVB2PDF& pdf_;
    std::int32_t fontNumber_;
    std::int32_t fontSize_;
    int y_ = 0;
    std::string pending_;
};

void WriteDraft(const StyledText& draft, cVB2PDF& pdf) {
    const std::vector<std::size_t> lineStarts = WrapDraftLines(draft, kPdfTextWidth);
    const std::u16string text = draft.Text();
    DraftFeeder feeder(pdf, draft.FormatAt(0));
    std::size_t line = 0;
    for (const FormatRun& run : draft.Runs()) {
        std::size_t position = run.start;
        const std::size_t end = run.start + run.length;
        while (position < end) {
            if (line + 1 < lineStarts.size() && lineStarts[line + 1] <= position) {
                ++line;
                feeder.NextLine();
            }
            const std::size_t lineEnd =
                line + 1 < lineStarts.size() ? std::min(end, lineStarts[line + 1]) : end;
            feeder.TakeFormat(run.format);
            feeder.Add(std::u16string_view(text).substr(position, lineEnd - position));
            position = lineEnd;
        }
    }
    feeder.WritePending();
}

}  // namespace

BesideStoryExport ExportPdfCommand(EditorSession& session) {
    if (!StoryHasPlace(session)) return {};
    const StoryDraft draft = BuildStoryDraft(session.story, session.preferences);
    if (draft.Empty() || draft.signatureStart == 0) {
        session.window.ShowStatusError(session.Message("EmptyStory"));
        return {};
    }
    const std::filesystem::path path = PathBesideStory(session, "pdf");
    cVB2PDF pdf;
    pdf.PaperSize = 2;
    pdf.FileName = path;
    DescribeStory(session, pdf);
    pdf.StartPDF();
    WriteDraft(draft.text, pdf);
    if (!pdf.EndPDF()) {
        session.window.ShowStatusError("Cannot write " + path.string());
        return {};
    }
    return ExportedBesideStory(session, path);
}

}  // namespace tessarin
