#include "cli/cli_interaction.h"

#include <ostream>

namespace tessarin::cli {

Answer CliInteraction::Ask(std::string_view text, bool withCancel, MessageIcon) {
    Print(text);
    return answer_ == Answer::Cancel && !withCancel ? Answer::No : answer_;
}

void CliInteraction::Tell(std::string_view text, MessageIcon) {
    Print(text);
}

std::optional<std::filesystem::path> CliInteraction::ChooseFileToOpen(
    std::string_view, std::string_view, const std::filesystem::path&) {
    return std::nullopt;
}

std::optional<std::filesystem::path> CliInteraction::ChooseFileToSave(std::string_view,
                                                                      std::string_view,
                                                                      const std::filesystem::path&,
                                                                      std::string_view) {
    return std::nullopt;
}

std::optional<std::filesystem::path> CliInteraction::ChooseFolder(std::string_view,
                                                                  const std::filesystem::path&) {
    return std::nullopt;
}

void CliInteraction::ShowStatus(std::string_view text) {
    if (!text.empty() && text != lastPrinted_) Print(text);
}

void CliInteraction::Print(std::string_view text) {
    err_ << text << '\n';
    lastPrinted_ = text;
}

}  // namespace tessarin::cli
