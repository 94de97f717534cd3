// The run-based conversion against the plain per-character one, on many random texts.

#include <gtest/gtest.h>

#include <vector>

#include "markup_random.h"
#include "markup_reference.h"
#include "story/inline_tags.h"
#include "story/word_count.h"

namespace tessarin {
namespace {

using testing::RandomStoryText;
using testing::ReferenceStoryTextToTags;

// True when every paired inline tag closes the innermost open one and none stays open.
bool NestsProperly(std::u16string_view tags) {
    std::vector<InlineTag> open;
    for (std::size_t position = 0; position < tags.size(); ++position) {
        const auto match = MatchInlineTag(tags, position);
        if (!match) continue;
        if (!match->closing) {
            open.push_back(match->tag);
        } else {
            if (open.empty() || open.back() != match->tag) return false;
            open.pop_back();
        }
        position += match->length - 1;
    }
    return open.empty();
}

TEST(MarkupEquivalence, RunsGiveTheBytesOfThePerCharacterConversion) {
    RandomStoryText random(20240611);
    int crossed = 0;
    for (int round = 0; round < 600; ++round) {
        std::vector<StyledText> texts;
        for (int box = 0; box < kTextBoxCount; ++box)
            texts.push_back(random.Number(3) == 0 ? StyledText()
                                                  : random.Wild(1 + random.Number(40)));
        StoryBodyInput input;
        for (int box = 0; box < kTextBoxCount; ++box) {
            auto& target = input.boxes[static_cast<std::size_t>(box)];
            target.text = &texts[static_cast<std::size_t>(box)];
            target.caption = random.Caption();
            target.charCount = random.Number(500);
        }
        input.settings.removeDuplicateSpaces = random.Number(4) != 0;
        input.settings.utf8 = random.Number(2) == 0;
        if (random.Number(8) == 0) input.settings.interColours[1] = input.settings.interColours[0];
        if (random.Number(3) == 0) input.signature = "J. \xC5\x93  <Dupont>";
        input.initialsSignature = random.Number(2) == 0;

        const std::string expected = ReferenceStoryTextToTags(input, true);
        ASSERT_EQ(StoryTextToTags(input), expected) << "round " << round;
        // Where the plain conversion already nests properly, the repair changed nothing.
        const std::string unrepaired = ReferenceStoryTextToTags(input, false);
        if (unrepaired != expected) ++crossed;
        for (int box = 0; box < kTextBoxCount; ++box) {
            const std::u16string tags =
                BoxTextToTags(texts[static_cast<std::size_t>(box)], box, input.settings);
            ASSERT_TRUE(NestsProperly(tags)) << "round " << round << " box " << box;
        }
    }
    EXPECT_GT(crossed, 20);  // the random texts do exercise the repair
}

TEST(MarkupEquivalence, WordCountOfRunsMatchesTheReplacementPasses) {
    RandomStoryText random(7);
    for (int round = 0; round < 400; ++round) {
        const StyledText text = random.Wild(1 + random.Number(30));
        ASSERT_EQ(CountStoryWords(text), testing::ReferenceWordCount(text)) << "round " << round;
    }
}

}  // namespace
}  // namespace tessarin
