#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "app/app_paths.h"
#include "app/user_interaction.h"
#include "app/window_state.h"
#include "config/configuration.h"
#include "config/preferences.h"
#include "config/profile_file.h"
#include "metadata/tree_highlight.h"
#include "story/story_context.h"
#include "story/story_record.h"

namespace tessarin {

// The copy-fit limits of one text box in the form in force: no limit while minimum is 0.
struct BoxLimits {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
};

// The state of the story panel that the form in force decides.
struct PanelState {
    int formInForce = -1;                           // index into the configuration's forms, -1 none
    std::array<bool, 6> allCaps{};                  // boxes 0 to 5 typed in upper case only
    std::array<bool, kTextBoxCount> activeBoxes{};  // boxes the form shows
    bool signatureAvailable = false;                // the form's digits hold 0
    std::array<BoxLimits, kTextBoxCount> limits{};
    std::int32_t minImages = 0;
    std::int32_t maxImages = -1;      // -1 no limit, 0 no images
    std::int32_t imageAllowance = 0;  // characters the story's images replace in box 6
};

// The undo ring: 100 whole snapshots of a box's styled text, numbered 1 to 100.
inline constexpr int kUndoSlots = 100;
inline constexpr int kNoBox = 65535;
struct UndoSlot {
    int box = kNoBox;  // kNoBox: the slot is empty
    StyledText text;
};
struct UndoRing {
    std::array<UndoSlot, kUndoSlots + 1> snapshots;  // [1] to [100]; [0] unused
    int position = 1;
    int lastBox = kNoBox;
};

// Everything the main window holds, without a window: the program's paths, the user's
// preferences, the configuration and what it fills on screen, the open story and its panel,
// the undo ring. The operations live in their subsystems (story file operations, forms and
// copy-fit, formatting, metadata, attachments) as functions over this session; the desktop
// editor shows it and forwards the user's gestures to those functions.
struct EditorSession {
    EditorSession(const AppPaths& appPaths, UserInteraction& userInteraction)
        : paths(appPaths), profile(appPaths.preferencesFile), user(userInteraction) {}

    AppPaths paths;
    ProfileFile profile;
    Preferences preferences;
    Configuration configuration;
    WindowState window;
    UserInteraction& user;

    // The open story and where it lives: an empty file name is a story never saved.
    StoryRecord story;
    std::filesystem::path storyDirectory;
    std::string storyFileName;
    bool storyModified = false;
    std::string lastExtensionUpper;  // of the last file opened
    bool mainBoxLocked = false;      // box 6 locked: a read-only story

    // Start directories of the file dialogs (DirStories, DirImages and their overrides).
    std::filesystem::path lastStoryDirectory;
    std::filesystem::path lastImageDirectory;

    // The highlighted chains of the publications and taxonomy trees.
    TreeHighlights highlights;

    PanelState panel;
    UndoRing undo;
    int activeBox = kNoBox;  // the box with the focus; kNoBox: none

    // The automatic save's countdown, in ticks of one minute.
    int backupCountdown = 1;

    // The configured text of a message key, with "\n" as a line break.
    std::string Message(std::string_view key) const { return configuration.messages.Message(key); }

    // The full path of the open story; empty for a story never saved.
    std::filesystem::path StoryPath() const {
        return storyFileName.empty() ? std::filesystem::path() : storyDirectory / storyFileName;
    }

    // What reading and writing the story file need.
    StoryContext MakeStoryContext() {
        return StoryContext{configuration, window, preferences, user};
    }
};

}  // namespace tessarin
