#include "linguistics/checked_words.h"

#include "text/styled_text_case.h"

namespace tessarin {
namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

// Apostrophes and hyphens belong to a word only between two of its letters.
bool JoinsWord(char16_t unit) {
    return unit == u'\'' || unit == u'\u2019' || unit == u'-';
}

}  // namespace

std::u16string TextOutsideNotes(const StyledText& text) {
    std::u16string plain = text.Text();
    text.ForEachRun(0, text.Length(), [&plain](const FormatRun& run) {
        if (run.format.isProtected) plain.replace(run.start, run.length, run.length, u' ');
    });
    return plain;
}

void ForEachCheckedWord(std::u16string_view text, std::size_t from,
                        const std::function<bool(const CheckedWord&)>& visit) {
    std::size_t position = from;
    const std::size_t end = text.size();
    while (position < end) {
        if (!IsWordUnit(text[position])) {
            ++position;
            continue;
        }
        const std::size_t start = position;
        bool hasDigit = false;
        while (position < end) {
            if (IsWordUnit(text[position])) {
                hasDigit = hasDigit || IsDigit(text[position]);
                ++position;
            } else if (JoinsWord(text[position]) && position + 1 < end &&
                       IsWordUnit(text[position + 1])) {
                ++position;
            } else {
                break;
            }
        }
        if (!hasDigit && !visit(CheckedWord{start, position - start})) return;
    }
}

bool IsUpperCaseWord(std::u16string_view word) {
    for (const char16_t unit : word) {
        if (ToUpperUnit(unit) != unit) return false;
    }
    return true;
}

}  // namespace tessarin
