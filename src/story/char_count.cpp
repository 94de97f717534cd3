#include "story/char_count.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "story/markup_read_tokens.h"

namespace tessarin {

std::int64_t CountLineBreaks(std::u16string_view text) {
    std::int64_t pairs = 0;
    for (std::size_t position = 0; position + 1 < text.size(); ++position) {
        if (text[position] == u'\r' && text[position + 1] == u'\n') ++pairs;
    }
    return pairs;
}

std::int32_t CountBoxCharacters(const StyledText& text, std::int32_t noteCharacters,
                                std::int32_t paragraphMarks) {
    // The box is read a chunk at a time, so that a large box is never copied whole; a line
    // break may stand across the end of one chunk and the start of the next.
    constexpr std::size_t kChunkLength = 64 * 1024;
    const std::size_t length = text.Length();
    std::int64_t lineBreaks = 0;
    char16_t previous = u'\0';
    for (std::size_t start = 0; start < length; start += kChunkLength) {
        const std::u16string chunk = text.Text(start, kChunkLength);
        lineBreaks += CountLineBreaks(chunk);
        if (previous == u'\r' && chunk.front() == u'\n') ++lineBreaks;
        previous = chunk.back();
    }
    const std::int64_t count =
        static_cast<std::int64_t>(length) - 2 * lineBreaks - noteCharacters - paragraphMarks;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        count, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

std::int32_t CountNoteCharactersInTags(std::u16string_view tags) {
    constexpr std::size_t kOpeningLength = 6;
    std::vector<std::size_t> openings;
    std::vector<std::size_t> closings;
    std::size_t measured = 0;
    for (std::size_t position = 0; position < tags.size();) {
        const auto token = MatchReadToken(tags, position);
        if (!token) {
            ++measured;
            ++position;
            continue;
        }
        if (token->token == ReadToken::NoteOn) openings.push_back(measured);
        if (token->token == ReadToken::NoteOff) closings.push_back(measured);
        measured += token->measuredLength;
        position += token->length;
    }
    // Each opening tag is measured to the first closing tag after it; a closing tag may serve
    // several openings.
    std::int64_t total = 0;
    std::size_t closing = 0;
    for (const std::size_t opening : openings) {
        while (closing < closings.size() && closings[closing] < opening)
            ++closing;
        if (closing == closings.size()) break;
        total += static_cast<std::int64_t>(closings[closing] - opening - kOpeningLength);
    }
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(total, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace tessarin
