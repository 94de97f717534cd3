#pragma once

#include <QString>

#include "app/user_interaction.h"

class QWidget;

namespace tessarin {

// The core's questions and messages as the desktop editor shows them: message boxes titled
// "Tessarin" and the version, the platform's file and folder dialogs, the system beep.
// Questions, messages and beeps may come from any thread; they are shown on the
// application's.
class QtUserInteraction : public UserInteraction {
  public:
    // parent: the window the dialogs belong to; may be null.
    explicit QtUserInteraction(QWidget* parent = nullptr) : parent_(parent) {}

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
    void Beep() override;

  private:
    Answer AskHere(std::string_view text, bool withCancel, MessageIcon icon);

    QWidget* parent_;
};

// "Tessarin" " " and the program's version: the title of every message box.
QString MessageBoxTitle();

// A filter of the form "Stories XML (*.xml)|*.xml|Backup (*.bml)|*.bml" as a file dialog
// takes it: one entry per pair, the shown text with its own bracketed patterns replaced by the
// pair's patterns, blank-separated ("Stories XML (*.xml);;Backup (*.bml)").
QString DialogNameFilter(std::string_view filter);

}  // namespace tessarin
