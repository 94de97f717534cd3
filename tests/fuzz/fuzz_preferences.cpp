// The preferences file: any bytes are read as every preference, then a few keys are
// written, and each reads back as written while every other key keeps its value.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "config/preferences.h"
#include "config/profile_file.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessarin;
    ProfileFile profile(fuzz::WriteInput("Tessarin.ini", fuzz::Bytes(data, size)));
    const Preferences before = ReadPreferences(profile);

    const std::vector<ProfileEntry> entries = {{"FileMRU", "File1", "/news/é.xml"},
                                               {"Preferences", "NewKey", "line\nbreak"},
                                               {"Fuzz", "Key", "value"},
                                               {"fuzz", "KEY", "second"}};
    if (!profile.Write(entries)) __builtin_trap();
    const ProfileContents after = profile.Load();
    if (after.Read("FileMRU", "File1") != "/news/é.xml") __builtin_trap();
    if (after.Read("Preferences", "NewKey") != "line break") __builtin_trap();
    if (after.Read("Fuzz", "Key") != "second") __builtin_trap();
    Preferences expected = before;
    expected.FileMRU.File[0] = "/news/é.xml";
    if (!(ReadPreferences(profile) == expected)) __builtin_trap();
    return 0;
}
