// The configuration document: any bytes are loaded as the start-up loads them.

#include <cstddef>
#include <cstdint>

#include "app/window_state.h"
#include "config/load_configuration.h"
#include "config/preferences.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessarin;
    static const ProfileFile profile(fuzz::Folder() / "none.ini");
    static const Preferences preferences = ReadPreferences(profile);
    const auto document = fuzz::WriteInput("Tessarin.xml", fuzz::Bytes(data, size));
    Configuration configuration;
    WindowState window;
    LoadOptions options;
    options.anotherInstanceRunning = [] { return true; };
    options.endSecondInstance = [](const std::string&) {};
    LoadConfiguration(document, profile, preferences, configuration, window, options);
    return 0;
}
