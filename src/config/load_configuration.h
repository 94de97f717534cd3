#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "config/configuration.h"
#include "config/preferences.h"
#include "config/profile_file.h"

namespace tessarin {

// What the configuration load asks of the program around it. Every member may stay empty:
// the defaults are those of a program without a screen.
struct LoadOptions {
    // The open story's name, for the window title; empty for a new story, whose name is the
    // message NewStory.
    std::string storyName;

    // The single-instance rule, run while Messages is read: when MultipleInstances is
    // "false" and anotherInstanceRunning says so, the load beeps, hands the text of
    // NotMultipleInstance to endSecondInstance (which shows it with the stop icon and ends
    // the process) and returns false. Empty: no other instance is running.
    std::function<bool()> anotherInstanceRunning;
    std::function<void(const std::string& message)> endSecondInstance;

    // The synonyms dictionary, loaded at the end of a complete load by the synonyms feature
    // when the configuration names one. Empty: no synonyms are loaded.
    std::function<void(const Configuration&, WindowState&)> loadSynonyms;
};

// Reads the configuration document into configuration and fills the main window's
// captions, lists and trees in window, section by section in the document's reading order:
// the document element's attributes, FTPTransmission with ExportFormats, SMTPTransmission,
// Workflow, TextML, Metadata (its items, then Keywords and Taxonomy, then Forms, Status and
// Genre), Story with NewsServices, Publications (the preferred view), Interface, Messages;
// then the window title. Each section first puts back what it owns, so that a load over an
// earlier one doubles nothing.
//
// profile gives the Identification section (identity, SMTPRecipient); preferences give the
// classification colours. Returns true when every required section was found. A document
// that does not parse gives false with the status panel cleared; a missing FTPTransmission,
// Metadata, Story, Publications or Publication gives false with "Error: " path and the
// missing part in the status panel, the error picture and one beep, and leaves in force what
// was read before it. A missing FTPServer is reported the same way, but the load goes on.
bool LoadConfiguration(const std::filesystem::path& document, const ProfileFile& profile,
                       const Preferences& preferences, Configuration& configuration,
                       WindowState& window, const LoadOptions& options = {});

// "Tessarin" " " programVersion, then the client when there is one, then the story's name,
// joined by " - ".
std::string WindowTitle(std::string_view programVersion, std::string_view client,
                        std::string_view storyName);

}  // namespace tessarin
