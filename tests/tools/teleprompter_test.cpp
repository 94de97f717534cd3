#include "tools/teleprompter.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

// The boxes in order, blank ones and note anchors left out, no-break marks made spaces, the
// signature left off, and no line break at the end.
TEST(Teleprompter, TextIsTheBoxesWithoutNotesOrSignature) {
    StoryRecord story;
    story.boxes[0] = StyledText(u"Storm warning");
    story.boxes[1] = StyledText(u"   ");
    story.boxes[6] = StyledText(u"Winds at\u00B7noon.\r\nStay home");
    CharFormat anchor;
    anchor.isProtected = true;
    story.boxes[6].Insert(8, u"[note]", anchor);
    story.signature = "Lena Brandt";
    EXPECT_EQ(TeleprompterText(story, Preferences{}),
              u"Storm warning\nWinds at\u00A0noon.\nStay home");
}

// Each key's command is pressed in the teleprompter window's test; with a modifier, a key is
// no command.
TEST(Teleprompter, AKeyWithAModifierIsNoCommand) {
    EXPECT_EQ(PrompterCommandForKey("Ctrl+Down"), PrompterCommand::None);
}

// Speed 5 is half a line a second: 40-pixel lines move 20 pixels a second, whether the
// second comes in one step or in forty; at the end the text stops and waits.
TEST(Teleprompter, ScrollingAddsUpPartsOfPixelsAndStopsAtTheEnd) {
    PrompterScroll scroll;
    EXPECT_EQ(scroll.Advance(1000, 40, 10000), 0);  // opens paused
    scroll.Apply(PrompterCommand::Pause);
    for (int tick = 0; tick < 40; ++tick)
        scroll.Advance(25, 40, 10000);
    EXPECT_EQ(scroll.Offset(), 20);
    EXPECT_EQ(scroll.Advance(1000, 40, 10000), 40);
    EXPECT_EQ(scroll.Advance(60000, 40, 300), 300);
    EXPECT_TRUE(scroll.Paused());
    scroll.Apply(PrompterCommand::BackToTop);
    EXPECT_EQ(scroll.Offset(), 0);
}

// Fifty steps down then fifty up end at the top speed only when both bounds hold.
TEST(Teleprompter, SpeedStaysWithinItsBounds) {
    PrompterScroll scroll;
    for (int step = 0; step < 100; ++step)
        scroll.Apply(step < 50 ? PrompterCommand::Slower : PrompterCommand::Faster);
    EXPECT_EQ(scroll.Speed(), PrompterScroll::kFastest);
}

}  // namespace
}  // namespace tessarin
