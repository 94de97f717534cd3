// The run-based conversion against the plain per-character one, on many random texts.

#include <gtest/gtest.h>

#include <vector>

#include "common/utf8.h"
#include "common/windows1252.h"
#include "markup_random.h"
#include "markup_reference.h"
#include "story/inline_tags.h"
#include "story/markup_text_passes.h"

namespace tessarin {
namespace {

using testing::RandomStoryText;
using testing::ReferenceStoryTextToTags;

// True when every paired inline tag of the body closes the innermost open one and none stays
// open.
bool NestsProperly(const std::string& body, const MarkupSettings& settings) {
    const std::u16string tags = Utf8ToUtf16(settings.utf8 ? body : Windows1252ToUtf8(body));
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
    for (int round = 0; round < 300; ++round) {
        std::vector<StyledText> texts;
        StoryBodyInput input;
        // Now and then a long main box, which is finished piece by piece.
        for (int box = 0; box < kTextBoxCount; ++box) {
            const bool longBox = box == kMainTextBox && round % 75 == 0;
            texts.push_back(
                !longBox && random.Number(3) == 0
                    ? StyledText()
                    : random.Wild(longBox ? 3000 + static_cast<std::size_t>(random.Number(5000))
                                          : 1 + random.Number(40)));
        }
        for (int box = 0; box < kTextBoxCount; ++box) {
            input.boxes[static_cast<std::size_t>(box)] = {&texts[static_cast<std::size_t>(box)],
                                                          random.Caption(), random.Number(500)};
        }
        input.settings.removeDuplicateSpaces = random.Number(4) != 0;
        input.settings.utf8 = random.Number(2) == 0;
        if (random.Number(8) == 0) input.settings.interColours[1] = input.settings.interColours[0];
        if (random.Number(3) == 0) input.signature = "J. \xC5\x93  <Dupont>";
        input.initialsSignature = random.Number(2) == 0;

        const std::string body = StoryTextToTags(input);
        ASSERT_EQ(body, ReferenceStoryTextToTags(input, true)) << "round " << round;
        ASSERT_TRUE(NestsProperly(body, input.settings)) << "round " << round;
        // Where the plain conversion already nests properly, the repair changes nothing.
        const std::string unrepaired = ReferenceStoryTextToTags(input, false);
        if (NestsProperly(unrepaired, input.settings))
            ASSERT_EQ(body, unrepaired) << "round " << round;
        else
            ++crossed;
    }
    EXPECT_GT(crossed, 10);  // the random texts do exercise the repair
}

TEST(MarkupEquivalence, ClusterPassesMatchWholeTextPassesOnAnyText) {
    constexpr std::u16string_view kPieces[] = {
        u"<b>",       u"</b>",     u"<i>",       u"</i>",   u"<u>",     u"</u>",
        u"<sup>",     u"</sup>",   u"<p/>",      u"<note>", u"</note>", u"<inter1>",
        u"</inter1>", u"<inter2>", u"</inter3>", u"<",      u">",       u"</",
        u"x",         u" ",        u"  ",        u"\t",     u"<inter",  u"1>"};
    RandomStoryText random(3);
    for (int round = 0; round < 3000; ++round) {
        const std::u16string text = u"a" + random.Pieces(kPieces, 25) + u"z";
        std::u16string finished = text;
        FinishBodyText(finished, round % 2 == 0);
        ASSERT_EQ(finished, testing::ReferenceBodyPasses(text, round % 2 == 0))
            << Utf16ToUtf8(text);
    }
}

}  // namespace
}  // namespace tessarin
