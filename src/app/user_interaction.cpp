#include "app/user_interaction.h"

namespace tessarin {

Answer ScriptedInteraction::Ask(std::string_view text, bool withCancel, MessageIcon) {
    questions.emplace_back(text);
    Answer answer = defaultAnswer_;
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
    }
    if (answer == Answer::Cancel && !withCancel) answer = Answer::No;
    return answer;
}

void ScriptedInteraction::Tell(std::string_view text, MessageIcon) {
    messages.emplace_back(text);
}

std::optional<std::filesystem::path> ScriptedInteraction::NextPath() {
    if (paths_.empty()) return std::nullopt;
    auto path = paths_.front();
    paths_.pop_front();
    return path;
}

std::optional<std::filesystem::path> ScriptedInteraction::ChooseFileToOpen(
    std::string_view, std::string_view, const std::filesystem::path&) {
    return NextPath();
}

std::optional<std::filesystem::path> ScriptedInteraction::ChooseFileToSave(
    std::string_view, std::string_view, const std::filesystem::path&, std::string_view) {
    return NextPath();
}

std::optional<std::filesystem::path> ScriptedInteraction::ChooseFolder(
    std::string_view, const std::filesystem::path&) {
    return NextPath();
}

}  // namespace tessarin
