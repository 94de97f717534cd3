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

// Which tip the window shows as the user leafs through count tips: the one after the last
// shown (LastTipOfTheDay) when the window opens, so that every opening brings a new tip, then
// one step forward or back; it goes round from the last tip to the first and back. Any
// stored value, negative or past the end, gives a tip. Needs count > 0.
std::size_t TipAfter(std::int32_t lastShown, std::size_t count);
std::size_t TipBefore(std::int32_t shown, std::size_t count);

// The window closes on tip shown: the TipOfTheDay section keeps it and whether tips show at
// start, in memory and in the preferences file.
void RememberTips(Preferences& preferences, ProfileFile& profile, std::size_t shown,
                  bool showAtStartup);

}  // namespace tessarin
