#include "editing/search_replace.h"

#include <string>

#include "config/story_section.h"
#include "editing/copy_fit.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

constexpr int kRunOver = kTextBoxCount;

StyledText& BoxText(EditorSession& session, int box) {
    return session.story.boxes[static_cast<std::size_t>(box)];
}

// A box takes part in a search when it holds text and the window shows it to the writer.
bool Searchable(EditorSession& session, int box) {
    const ControlState& control = session.window.Control(TextBoxControlName(box));
    return !BoxText(session, box).Empty() && control.visible && control.enabled;
}

bool StoryHasText(EditorSession& session) {
    for (int box = 0; box < kTextBoxCount; ++box) {
        if (!BoxText(session, box).Empty()) return true;
    }
    return false;
}

std::int64_t Find(const StyledText& text, const SearchOptions& options, std::size_t from) {
    return text.Find(options.what, from, options.matchCase, options.wholeWord);
}

bool IsSearchMark(const CharFormat& format) {
    return format.highlighted && format.highlight == kSearchMarkColour && !format.isProtected;
}

}  // namespace

void SearchRun::Reset() {
    box_ = 0;
    lastHit_ = -1;
}

void SearchRun::Restart(EditorSession& session) {
    Reset();
    ClearSearchMarks(session);
}

int SearchRun::SearchedBox() const {
    return box_ < kRunOver && lastHit_ >= 0 ? box_ : kNoBox;
}

std::optional<TextSelection> SearchRun::FindNext(EditorSession& session,
                                                 const SearchOptions& options) {
    if (options.what != lastSearch_ || box_ == kRunOver) {
        Restart(session);
        lastSearch_ = options.what;
    }
    if (options.what.empty()) return std::nullopt;
    session.window.ClearStatus();
    if (!StoryHasText(session)) {
        session.window.Status() = {session.Message("EmptyStory"), false};
        Reset();
        return std::nullopt;
    }
    for (; box_ < kRunOver; ++box_, lastHit_ = -1) {
        if (!Searchable(session, box_)) continue;
        const std::int64_t hit =
            Find(BoxText(session, box_), options, static_cast<std::size_t>(lastHit_ + 1));
        if (hit < 0) continue;
        lastHit_ = hit;
        session.activeBox = box_;
        return TextSelection{box_, static_cast<std::size_t>(hit), options.what.size()};
    }
    Reset();
    session.user.Tell(session.Message("SearchCompleted"), MessageIcon::Information);
    return std::nullopt;
}

std::optional<TextSelection> SearchRun::Replace(EditorSession& session, TextSelection selection,
                                                const SearchOptions& options,
                                                std::u16string_view replacement) {
    StyledText* text = EditableBox(session, selection);
    if (text != nullptr && selection.length > 0 &&
        !HoldsProtectedText(*text, selection.start, selection.length)) {
        const BoxTextChange change =
            MeasureBoxEdit(*text, selection.start, selection.length, replacement);
        text->Replace(selection.start, selection.length, replacement);
        BoxTextChanged(session, selection.box, change, ChangeOrigin::User);
        RecordUndo(session, selection.box);
        if (selection.box == box_) {
            // The search goes on behind what was put in.
            lastHit_ = static_cast<std::int64_t>(selection.start + replacement.size()) - 1;
        }
    }
    return FindNext(session, options);
}

std::int64_t ReplaceAll(EditorSession& session, const SearchOptions& options,
                        std::u16string_view replacement) {
    if (options.what.empty()) return 0;
    std::int64_t count = 0;
    for (int box = 0; box < kTextBoxCount; ++box) {
        TextSelection whole{box, 0, 0};
        StyledText* text = EditableBox(session, whole);
        if (text == nullptr || !Searchable(session, box)) continue;
        if (Find(*text, options, 0) < 0) continue;
        // The box as it was is a step too, so that one undo brings it back.
        RecordUndo(session, box);
        std::int64_t replacedHere = 0;
        for (std::int64_t hit = Find(*text, options, 0); hit >= 0;) {
            const auto position = static_cast<std::size_t>(hit);
            std::size_t next = position + 1;
            if (!HoldsProtectedText(*text, position, options.what.size())) {
                text->Replace(position, options.what.size(), replacement);
                next = position + replacement.size();
                ++replacedHere;
            }
            hit = Find(*text, options, next);
        }
        if (replacedHere == 0) continue;
        count += replacedHere;
        RecountBox(session, box, ChangeOrigin::User);
        RecordUndo(session, box);
    }
    return count;
}

std::int64_t ReplaceAllAndTell(EditorSession& session, const SearchOptions& options,
                               std::u16string_view replacement) {
    const std::int64_t count = ReplaceAll(session, options, replacement);
    session.user.Tell(session.Message("SearchCompleted") + "\n" + std::to_string(count) + " " +
                          session.Message("ReplaceDone"),
                      MessageIcon::Information);
    return count;
}

std::int64_t MarkAllHits(EditorSession& session, const SearchOptions& options) {
    ClearSearchMarks(session);
    std::int64_t count = 0;
    if (!options.what.empty()) {
        for (int box = 0; box < kTextBoxCount; ++box) {
            if (!Searchable(session, box)) continue;
            StyledText& text = BoxText(session, box);
            for (std::int64_t hit = Find(text, options, 0); hit >= 0;) {
                const auto position = static_cast<std::size_t>(hit);
                text.ApplyFormat(position, options.what.size(), [](CharFormat& format) {
                    if (format.isProtected) return;
                    format.highlighted = true;
                    format.highlight = kSearchMarkColour;
                });
                ++count;
                hit = Find(text, options, position + options.what.size());
            }
        }
    }
    ControlState& label = session.window.Control("lblSearchAll");
    label.caption = session.configuration.interface.CaptionOr("SearchAll", "Search all") + ": " +
                    std::to_string(count);
    return count;
}

void ClearSearchMarks(EditorSession& session) {
    for (StyledText& text : session.story.boxes) {
        for (const FormatRun& run : text.Runs()) {
            if (!IsSearchMark(run.format)) continue;
            text.ApplyFormat(run.start, run.length, [](CharFormat& format) {
                format.highlighted = false;
                format.highlight = 0;
            });
        }
    }
}

}  // namespace tessarin
