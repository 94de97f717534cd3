#include "story/markup_text_passes.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "story/inline_tag_nesting.h"

namespace tessarin {
namespace {

using Row = std::pair<std::u16string_view, std::u16string_view>;

// The closing tags written when an attribute changes come out in the order of the checks;
// these rows put the usual sequences in a nesting order and move closing tags in front of
// the paragraph tags they touch. The order of the rows is part of the file format.
constexpr std::array<Row, 47> kTagOrderRows = {{
    {u"</b></i>", u"</i></b>"},
    {u"<p/></i></b>", u"</i></b><p/>"},
    {u"</b></u>", u"</u></b>"},
    {u"<p/></u></b>", u"</u></b><p/>"},
    {u"</sup></i></u>", u"</u></i></sup>"},
    {u"</i></u>", u"</u></i>"},
    {u"<p/></u></i>", u"</u></i><p/>"},
    {u"<inter1></b>", u"</b><inter1>"},
    {u"<inter1></i>", u"</i><inter1>"},
    {u"<inter1></u>", u"</u><inter1>"},
    {u"</inter1></b>", u"</b></inter1>"},
    {u"</inter1></i>", u"</i></inter1>"},
    {u"</inter1></u>", u"</u></inter1>"},
    {u"</inter1></sup>", u"</sup></inter1>"},
    {u"<inter2></b>", u"</b><inter2>"},
    {u"<inter2></i>", u"</i><inter2>"},
    {u"<inter2></u>", u"</u><inter2>"},
    {u"</inter2></b>", u"</b></inter2>"},
    {u"</inter2></i>", u"</i></inter2>"},
    {u"</inter2></u>", u"</u></inter2>"},
    {u"</inter2></sup>", u"</sup></inter2>"},
    {u"<inter3></b>", u"</b><inter3>"},
    {u"<inter3></i>", u"</i><inter3>"},
    {u"<inter3></u>", u"</u><inter3>"},
    {u"</inter3></b>", u"</b></inter3>"},
    {u"</inter3></i>", u"</i></inter3>"},
    {u"</inter3></u>", u"</u></inter3>"},
    {u"</inter3></sup>", u"</sup></inter3>"},
    {u"<inter1></inter2>", u"</inter2><inter1>"},
    {u"<inter1></inter3>", u"</inter3><inter1>"},
    {u"<inter1></note>", u"</note><inter1>"},
    {u"<inter2></inter1>", u"</inter1><inter2>"},
    {u"<inter2></inter3>", u"</inter3><inter2>"},
    {u"<inter2></note>", u"</note><inter2>"},
    {u"<inter3></inter1>", u"</inter1><inter3>"},
    {u"<inter3></inter2>", u"</inter2><inter3>"},
    {u"<inter3></note>", u"</note><inter3>"},
    {u"</sup></i></b>", u"</i></b></sup>"},
    {u"</sup></b>", u"</b></sup>"},
    {u"</sup></i>", u"</i></sup>"},
    {u"</sup></u>", u"</u></sup>"},
    {u"<p/></i>", u"</i><p/>"},
    {u"<p/></b>", u"</b><p/>"},
    {u"<p/></u>", u"</u><p/>"},
    {u"<p/></inter1>", u"</inter1><p/>"},
    {u"<p/></inter2>", u"</inter2><p/>"},
    {u"<p/></inter3>", u"</inter3><p/>"},
}};

// Run after the paragraph line breaks are in place.
constexpr std::array<Row, 6> kNoteOrderRows = {{
    {u"<note></i>", u"</i><note>"},
    {u"<i></note>", u"</note><i>"},
    {u"<note></b>", u"</b><note>"},
    {u"<b></note>", u"</note><b>"},
    {u"<note></u>", u"</u><note>"},
    {u"<u></note>", u"</note><u>"},
}};

constexpr std::size_t kLongestDuplicateBlanks = 6;

// Every row replaces two or three adjacent tags, at least one of them closing, by other
// adjacent tags. A match starts at a "<" and ends at a ">" with only whole "<...>" pieces
// between, so it lies inside one cluster of adjacent "<...>" pieces, and the rows leave the
// clusters where they are: running the rows over each cluster gives the text that running
// each row over the whole text gives, without passing over the whole text once for each row.

// The end of the cluster of "<...>" pieces that starts at start, and how many pieces it has.
std::pair<std::size_t, std::size_t> ClusterAt(std::u16string_view text, std::size_t start) {
    std::size_t end = start;
    std::size_t pieces = 0;
    while (end < text.size() && text[end] == u'<') {
        const std::size_t pieceEnd = text.find(u'>', end);
        if (pieceEnd == std::u16string_view::npos) break;
        end = pieceEnd + 1;
        ++pieces;
    }
    return {end, pieces};
}

void ApplyRows(std::u16string& cluster, std::size_t pieces, std::span<const Row> rows) {
    if (pieces < 2 || cluster.find(u"</") == std::u16string::npos) return;
    for (const auto& [from, to] : rows)
        ReplaceAll(cluster, from, to);
}

void ReplaceInTagClusters(std::u16string& text, std::span<const Row> rows) {
    std::u16string result;
    std::size_t copied = 0;
    for (std::size_t start = text.find(u'<'); start != std::u16string::npos;) {
        const auto [end, pieces] = ClusterAt(text, start);
        if (pieces == 0) break;  // no ">" left: nothing further can match
        std::u16string cluster = text.substr(start, end - start);
        ApplyRows(cluster, pieces, rows);
        if (cluster.compare(0, cluster.size(), text, start, end - start) != 0) {
            result.append(text, copied, start - copied);
            result += cluster;
            copied = end;
        }
        start = text.find(u'<', end);
    }
    if (copied == 0) return;
    result.append(text, copied);
    text.swap(result);
}

// Text between tag clusters: runs of blanks collapsed when asked.
void FeedText(std::u16string_view text, bool removeDuplicateSpaces, TagNester& nester) {
    if (!removeDuplicateSpaces) {
        nester.Characters(text);
        return;
    }
    while (!text.empty()) {
        const std::size_t blank = std::min(text.find(u' '), text.size());
        nester.Characters(text.substr(0, blank));
        const std::size_t afterBlanks = std::min(text.find_first_not_of(u' ', blank), text.size());
        const std::size_t kept =
            BlanksAfterCollapsing(afterBlanks - blank, kLongestDuplicateBlanks);
        nester.Characters(std::u16string(kept, u' '));
        text.remove_prefix(afterBlanks);
    }
}

void FeedTags(std::u16string_view cluster, TagNester& nester) {
    for (std::size_t start = 0; start < cluster.size();) {
        const std::size_t end = cluster.find(u'>', start) + 1;
        if (const auto match = MatchInlineTag(cluster, start)) {
            if (match->closing)
                nester.Closing(match->tag);
            else
                nester.Opening(match->tag);
        } else {
            nester.Characters(cluster.substr(start, end - start));
        }
        start = end;
    }
}

// A cluster after the order rows: a line break after each paragraph tag, then the note rows
// over each part between line breaks.
void FeedCluster(std::u16string cluster, std::size_t pieces, TagNester& nester) {
    ApplyRows(cluster, pieces, kTagOrderRows);
    for (std::size_t lineStart = 0;;) {
        const std::size_t paragraph = cluster.find(u"<p/>", lineStart);
        const std::size_t lineEnd =
            paragraph == std::u16string::npos ? cluster.size() : paragraph + 4;
        std::u16string line = cluster.substr(lineStart, lineEnd - lineStart);
        ApplyRows(line, static_cast<std::size_t>(std::count(line.begin(), line.end(), u'>')),
                  kNoteOrderRows);
        FeedTags(line, nester);
        if (paragraph == std::u16string::npos) return;
        nester.Characters(u"\r\n");
        lineStart = lineEnd;
    }
}

}  // namespace

void ReplaceAll(std::u16string& text, std::u16string_view from, std::u16string_view to) {
    std::size_t hit = text.find(from);
    if (hit == std::u16string::npos) return;
    std::u16string result;
    result.reserve(text.size() + text.size() / 8);
    std::size_t start = 0;
    while (hit != std::u16string::npos) {
        result.append(text, start, hit - start);
        result.append(to);
        start = hit + from.size();
        hit = text.find(from, start);
    }
    result.append(text, start);
    text.swap(result);
}

std::size_t BlanksAfterCollapsing(std::size_t run, std::size_t longest) {
    if (run < 2) return run;
    for (std::size_t pattern = longest; pattern >= 2; --pattern)
        run = run / pattern + run % pattern;
    return run;
}

void CollapseBlankRuns(std::u16string& text, std::size_t longest) {
    std::size_t write = 0;
    std::size_t read = 0;
    while (read < text.size()) {
        if (text[read] != u' ') {
            text[write++] = text[read++];
            continue;
        }
        std::size_t run = 0;
        while (read < text.size() && text[read] == u' ')
            ++read, ++run;
        const std::size_t kept = BlanksAfterCollapsing(run, longest);
        for (std::size_t blank = 0; blank < kept; ++blank)
            text[write++] = u' ';
    }
    text.resize(write);
}

InlineTagFinisher::InlineTagFinisher(bool removeDuplicateSpaces, Emit emit)
    : removeDuplicateSpaces_(removeDuplicateSpaces), emit_(std::move(emit)), nester_(finished_) {}

void InlineTagFinisher::FeedSettled(std::u16string& tags) {
    // Back from the end over blanks and whole tags to the last other character.
    std::size_t settled = tags.size();
    while (settled > 0) {
        const char16_t last = tags[settled - 1];
        if (last == u'>') {
            const std::size_t tagStart = tags.rfind(u'<', settled - 1);
            if (tagStart == std::u16string::npos) return;
            settled = tagStart;
        } else if (last == u' ' || (last >= 0xD800 && last <= 0xDBFF)) {
            --settled;
        } else {
            break;
        }
    }
    if (settled == 0) return;
    Feed(std::u16string_view(tags).substr(0, settled));
    tags.erase(0, settled);
    emit_(finished_);
    nester_.Forget();
}

void InlineTagFinisher::FeedLast(std::u16string_view tags) {
    Feed(tags);
    nester_.Finish();
    emit_(finished_);
    nester_.Forget();
}

void InlineTagFinisher::Feed(std::u16string_view tags) {
    for (std::size_t position = 0; position < tags.size();) {
        const std::size_t start = std::min(tags.find(u'<', position), tags.size());
        FeedText(tags.substr(position, start - position), removeDuplicateSpaces_, nester_);
        if (start == tags.size()) return;
        const auto [end, pieces] = ClusterAt(tags, start);
        if (pieces == 0) {  // a "<" with no ">" after it is text
            FeedText(tags.substr(start), removeDuplicateSpaces_, nester_);
            return;
        }
        FeedCluster(std::u16string(tags.substr(start, end - start)), pieces, nester_);
        position = end;
    }
}

void FinishBodyText(std::u16string& text, bool removeDuplicateSpaces) {
    ReplaceInTagClusters(text, kTagOrderRows);
    ReplaceAll(text, u"<p/>", u"<p/>\r\n");
    std::erase(text, u'\t');
    ReplaceInTagClusters(text, kNoteOrderRows);
    if (removeDuplicateSpaces) CollapseBlankRuns(text, kLongestDuplicateBlanks);
}

}  // namespace tessarin
