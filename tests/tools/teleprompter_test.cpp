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
    EXPECT_EQ(TeleprompterText(StoryRecord{}, Preferences{}), u"");
}

TEST(Teleprompter, KeysByTheirPortableNames) {
    const std::pair<const char*, PrompterCommand> cases[] = {
        {"Down", PrompterCommand::Faster},    {"+", PrompterCommand::Faster},
        {"Up", PrompterCommand::Slower},      {"-", PrompterCommand::Slower},
        {"Space", PrompterCommand::Pause},    {"Home", PrompterCommand::BackToTop},
        {"Esc", PrompterCommand::Close},      {"A", PrompterCommand::None},
        {"Ctrl+Down", PrompterCommand::None}, {"", PrompterCommand::None},
    };
    for (const auto& [name, command] : cases)
        EXPECT_EQ(PrompterCommandForKey(name), command) << name;
}

TEST(Teleprompter, SpeedStaysWithinItsBoundsAndPauseKeepsIt) {
    PrompterScroll scroll;
    EXPECT_TRUE(scroll.Paused());
    for (int step = 0; step < 100; ++step)
        scroll.Apply(PrompterCommand::Slower);
    EXPECT_EQ(scroll.Speed(), PrompterScroll::kSlowest);
    for (int step = 0; step < 100; ++step)
        scroll.Apply(PrompterCommand::Faster);
    EXPECT_EQ(scroll.Speed(), PrompterScroll::kFastest);
    scroll.Apply(PrompterCommand::Pause);
    EXPECT_FALSE(scroll.Paused());
    scroll.Apply(PrompterCommand::Pause);
    EXPECT_TRUE(scroll.Paused());
    EXPECT_EQ(scroll.Speed(), PrompterScroll::kFastest);
}

// Speed 5 is half a line a second: 40-pixel lines move 20 pixels a second, whether the
// second comes in one step or in forty small ones.
TEST(Teleprompter, ScrollingAddsUpPartsOfPixels) {
    PrompterScroll whole;
    whole.Apply(PrompterCommand::Pause);
    EXPECT_EQ(whole.Advance(1000, 40, 10000), 20);

    PrompterScroll steps;
    steps.Apply(PrompterCommand::Pause);
    for (int tick = 0; tick < 40; ++tick)
        steps.Advance(25, 40, 10000);
    EXPECT_EQ(steps.Offset(), 20);

    PrompterScroll paused;
    EXPECT_EQ(paused.Advance(1000, 40, 10000), 0);
}

TEST(Teleprompter, StopsAtTheEndAndGoesBackToTheTop) {
    PrompterScroll scroll;
    scroll.Apply(PrompterCommand::Pause);
    EXPECT_EQ(scroll.Advance(60000, 40, 300), 300);
    EXPECT_TRUE(scroll.Paused());
    scroll.Apply(PrompterCommand::BackToTop);
    EXPECT_EQ(scroll.Offset(), 0);
    EXPECT_TRUE(scroll.Paused());
}

}  // namespace
}  // namespace tessarin
