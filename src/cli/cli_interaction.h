#pragma once

#include <iosfwd>
#include <string>

#include "app/user_interaction.h"

namespace tessarin::cli {

// The user as the command line plays it: every question takes the answer chosen with
// --answer (Cancel counts as No where a question has no Cancel), every question and message
// text goes to the error stream on a line of its own, file choices are cancelled and beeps
// are silent.
class CliInteraction : public UserInteraction {
  public:
    CliInteraction(Answer answer, std::ostream& err) : answer_(answer), err_(err) {}

    Answer Ask(std::string_view text, bool withCancel, MessageIcon icon) override;
    void Tell(std::string_view text, MessageIcon icon) override;
    std::optional<std::filesystem::path> ChooseFileToOpen(
        std::string_view title, std::string_view filter,
        const std::filesystem::path& start) override;
    std::optional<std::filesystem::path> ChooseFileToSave(std::string_view title,
                                                          std::string_view filter,
                                                          const std::filesystem::path& start,
                                                          std::string_view suggestedName) override;
    std::optional<std::filesystem::path> ChooseFolder(std::string_view prompt,
                                                      const std::filesystem::path& start) override;
    void Beep() override {}

    // Prints a text that the status bar would show, unless it is the text printed last (a
    // message shown both in a box and in the status bar is printed once).
    void ShowStatus(std::string_view text);

  private:
    void Print(std::string_view text);

    Answer answer_;
    std::ostream& err_;
    std::string lastPrinted_;
};

}  // namespace tessarin::cli
