#pragma once

#include <string>
#include <string_view>

#include "config/preferences.h"
#include "story/story_record.h"

namespace tessarin {

// The teleprompter: the story's text in large letters, scrolling up the whole screen at a
// speed the presenter sets from the keyboard.

// What the story shows on the prompter: its text boxes in order as the story's draft gathers
// them (blank boxes and notes left out, no-break marks made spaces), without the signature,
// one line break between paragraphs and none at the end.
std::u16string TeleprompterText(const StoryRecord& story, const Preferences& preferences);

enum class PrompterCommand { None, Faster, Slower, Pause, BackToTop, Close };

// The command of a key, by the key's portable name: "Down", "+" and "=" go faster, "Up" and
// "-" slower, "Space" pauses and starts again, "Home" goes back to the top (paused), "Esc"
// closes the prompter. Any other key does nothing.
PrompterCommand PrompterCommandForKey(std::string_view keyName);

// Where the text stands and how fast it moves. Speeds are in tenths of a line per second,
// from kSlowest to kFastest; the prompter opens paused at the top, at kStartSpeed, so that the
// presenter starts it. Pausing keeps the speed.
class PrompterScroll {
  public:
    static constexpr int kSlowest = 1;
    static constexpr int kFastest = 40;
    static constexpr int kStartSpeed = 5;

    void Apply(PrompterCommand command);

    // Moves the text on by the time passed, for lines lineHeight pixels high, and returns the
    // new offset from the top in whole pixels. Parts of a pixel are kept for the next call,
    // so that small steps add up to what one long step gives. At endOffset, the last line on
    // screen, the text stops and the prompter pauses.
    int Advance(int elapsedMs, int lineHeight, int endOffset);

    int Speed() const { return speed_; }
    bool Paused() const { return paused_; }
    int Offset() const { return static_cast<int>(position_); }

  private:
    int speed_ = kStartSpeed;
    bool paused_ = true;
    double position_ = 0;
};

}  // namespace tessarin
