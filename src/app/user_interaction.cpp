#include "app/user_interaction.h"

#include <algorithm>
#include <cctype>

namespace tessarin {
namespace {

// The patterns of a filter: every second part of "shown|patterns|shown|patterns", split at ";".
std::vector<std::string_view> FilterPatterns(std::string_view filter) {
    std::vector<std::string_view> patterns;
    std::size_t part = 0;
    for (std::size_t start = 0; start <= filter.size(); ++part) {
        std::size_t end = filter.find('|', start);
        if (end == std::string_view::npos) end = filter.size();
        for (std::size_t from = start; part % 2 == 1 && from < end;) {
            std::size_t to = filter.find(';', from);
            if (to == std::string_view::npos || to > end) to = end;
            patterns.push_back(filter.substr(from, to - from));
            from = to + 1;
        }
        start = end + 1;
    }
    return patterns;
}

bool EndsWithNoCase(std::string_view text, std::string_view ending) {
    if (ending.size() > text.size()) return false;
    const std::string_view tail = text.substr(text.size() - ending.size());
    return std::equal(tail.begin(), tail.end(), ending.begin(), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) ==
               std::tolower(static_cast<unsigned char>(b));
    });
}

// The extension of a pattern "*.xml"; empty for any other pattern.
std::string_view PatternExtension(std::string_view pattern) {
    if (!pattern.starts_with("*.") || pattern.find_first_of("*?", 1) != std::string_view::npos) {
        return {};
    }
    return pattern.substr(1);
}

}  // namespace

std::filesystem::path WithFilterExtension(const std::filesystem::path& chosen,
                                          std::string_view filter) {
    const std::vector<std::string_view> patterns = FilterPatterns(filter);
    const std::string name = chosen.filename().string();
    std::string_view first;
    for (std::string_view pattern : patterns) {
        const std::string_view extension = PatternExtension(pattern);
        if (extension.empty()) return chosen;
        if (EndsWithNoCase(name, extension)) return chosen;
        if (first.empty()) first = extension;
    }
    if (first.empty()) return chosen;
    std::filesystem::path completed = chosen;
    completed += std::string(first);
    return completed;
}

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
