#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "config/preferences.h"
#include "config/profile_file.h"

namespace tessarin {

// The tips of the day of TipOfTheDay.xml in the application directory:
//
//   <TipOfTheDay>
//     <Tip>Ctrl+S saves the story.</Tip>
//     <Tip>First line\nSecond line</Tip>
//   </TipOfTheDay>
//
// Each Tip element of the root, in order, is one tip: its text without the blanks and line
// ends around it, each two-character "\n" turned into a line break. Tips without text are
// left out.
struct TipsOfTheDay {
    std::vector<std::string> tips;
    // Why the file could not be read: empty when it was read or is simply not there (a
    // newsroom without tips), else the parse error as the status panel shows it, or a word
    // that the root element is not TipOfTheDay.
    std::string problem;
};

TipsOfTheDay ReadTipsOfTheDay(const std::filesystem::path& file);

// Tips are leafed through in a ring: any index, negative or past the end, names the tip it
// lands on going round (-1 the last, count the first). Needs count > 0.
std::size_t TipInRing(std::int64_t index, std::size_t count);

// The tip the window opens on: the one after the last shown, so that every opening brings a
// new tip. LastTipOfTheDay counts from 1 (0, its default, means none shown yet), so it is
// also the index of the tip that follows it.
std::size_t FirstTipToShow(const TipOfTheDaySection& tips, std::size_t count);

// The window closes on the tip of index shown: the TipOfTheDay section keeps its number and
// whether tips show at start, in memory and in the preferences file.
void RememberTips(Preferences& preferences, ProfileFile& profile, std::size_t shown,
                  bool showAtStartup);

}  // namespace tessarin
