#include <optional>
#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "config/profile_file.h"
#include "search/search_settings.h"
#include "search/story_row_text.h"
#include "search/story_search.h"

namespace tessarin::cli {
namespace {

constexpr const char* kSearchUsage =
    "tessarin-cli: usage: search [--in DIR] [--text TEXT] [--scope all|metadata|text|iptc]\n"
    "              [--operator exact|all|any] [--match-case] [--include-backups]\n";

struct SearchArguments {
    StorySearchSettings settings;
    std::string text;
};

template <typename Choice, std::size_t N>
std::optional<Choice> ChoiceNamed(const std::string& name, const char* const (&names)[N]) {
    for (std::size_t index = 0; index < N; ++index)
        if (name == names[index]) return static_cast<Choice>(index);
    return std::nullopt;
}

// The choices of the command line over those of the preferences.
std::optional<SearchArguments> ParseSearch(const Arguments& arguments,
                                           StorySearchSettings settings) {
    static const char* const kScopes[] = {"all", "metadata", "text", "iptc"};
    static const char* const kOperators[] = {"exact", "all", "any"};
    SearchArguments parsed{std::move(settings), {}};
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& option = arguments[index];
        if (option == "--match-case") {
            parsed.settings.matchCase = true;
            continue;
        }
        if (option == "--include-backups") {
            parsed.settings.includeBackups = true;
            continue;
        }
        if (index + 1 >= arguments.size()) return std::nullopt;
        const std::string& value = arguments[++index];
        if (option == "--in") {
            parsed.settings.folder = value;
        } else if (option == "--text") {
            parsed.text = value;
        } else if (option == "--scope") {
            const auto scope = ChoiceNamed<SearchScope>(value, kScopes);
            if (!scope) return std::nullopt;
            parsed.settings.scope = *scope;
        } else if (option == "--operator") {
            const auto op = ChoiceNamed<SearchOperator>(value, kOperators);
            if (!op) return std::nullopt;
            parsed.settings.op = *op;
        } else {
            return std::nullopt;
        }
    }
    return parsed;
}

}  // namespace

int RunSearchCommand(CliContext& context, const Arguments& arguments) {
    const ProfileFile preferences(context.preferencesFile);
    const std::optional<SearchArguments> parsed =
        ParseSearch(arguments, ReadStorySearchSettings(preferences.Load()));
    if (!parsed) {
        context.err << kSearchUsage;
        return kExitUsage;
    }
    const StorySearchSettings& settings = parsed->settings;
    if (settings.folder.empty()) {
        context.err << "tessarin-cli: no folder to search: give --in DIR\n";
        return kExitUsage;
    }
    const std::filesystem::path cacheFile = SearchCacheFileBeside(context.preferencesFile);
    SearchCache cache;
    cache.Load(cacheFile);
    const StorySearchResult result = SearchStories(
        settings.folder,
        MakeSearchQuery(parsed->text, settings.scope, settings.op, settings.matchCase), cache);
    cache.Save(cacheFile);
    for (const StoryRow* row : result.Listed(settings.includeBackups))
        context.out << StoryRowLine(*row) << '\n';
    context.out << result.CountsText(settings.includeBackups) << '\n';
    return kExitDone;
}

}  // namespace tessarin::cli
