#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "common/utf8.h"
#include "linguistics/dictionary_location.h"
#include "linguistics/session_synonyms.h"
#include "linguistics/spell_check_command.h"
#include "linguistics/word_statistics.h"
#include "linguistics/word_statistics_settings.h"
#include "session/editor_session.h"
#include "story/story_file_reader.h"

namespace tessarin::cli {
namespace {

// The editor after start-up with the story open, as the tools menu finds it.
bool OpenStory(EditorSession& session, CliContext& context, CliInteraction& user,
               const std::string& story) {
    if (!StartSession(session, context, user)) return false;
    StoryContext storyContext = session.MakeStoryContext();
    return ReadStory(story, storyContext, session.story) != StoryReadOutcome::NotRead;
}

// Each unknown word: the word, its box, then its suggestions, tab separated.
int Spell(CliContext& context, const std::string& story) {
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!OpenStory(session, context, user, story)) return kExitRefused;
    SpellingBridge bridge;
    if (const std::string problem = bridge.Start(SessionSpellingSettings(session));
        !problem.empty()) {
        context.err << problem << '\n';
        return kExitRefused;
    }
    for (int box = 0; box < kTextBoxCount; ++box) {
        const StyledText& text = session.story.boxes[box];
        const std::u16string plain = text.Text();
        for (const CheckedWord& word : bridge.UnknownWords(text)) {
            const std::u16string spelling = plain.substr(word.start, word.length);
            context.out << Utf16ToUtf8(spelling) << '\t' << box;
            for (const std::u16string& suggestion : bridge.Suggestions(spelling))
                context.out << '\t' << Utf16ToUtf8(suggestion);
            context.out << '\n';
        }
    }
    return kExitDone;
}

int Synonyms(CliContext& context, const std::string& word) {
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return kExitRefused;
    const std::optional<SynonymsDictionary> synonyms = LoadSessionSynonyms(session);
    if (!synonyms) return kExitRefused;
    for (const std::string& line : SynonymsOf(*synonyms, word))
        context.out << line << '\n';
    return kExitDone;
}

int Statistics(CliContext& context, const std::string& story, bool unknown) {
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!OpenStory(session, context, user, story)) return kExitRefused;
    std::optional<EmptyWords> emptyWords;
    if (IgnoreEmptyWordsChosen(session.profile))
        emptyWords.emplace(
            ReadEmptyWordsList(EmptyWordsFile(session.configuration, context.paths.appDir)));
    WordStatistics statistics =
        AnalyseWords(session.story.boxes, emptyWords ? &*emptyWords : nullptr);
    if (statistics.truncated) context.err << TooManyWordsMessage() << '\n';
    if (unknown) {
        SpellingBridge bridge;
        if (const std::string problem = bridge.Start(SessionSpellingSettings(session));
            !problem.empty()) {
            context.err << problem << '\n';
            return kExitRefused;
        }
        MarkUnknownWords(statistics, bridge);
    }
    const InterfaceSettings& captions = session.configuration.interface;
    context.out << captions.CaptionOr("ToolsWordStatisticsOccurrences", "Occurrences") << '\t'
                << statistics.occurrences << '\n'
                << captions.CaptionOr("ToolsWordStatisticsDistinctWords", "Distinct words") << '\t'
                << statistics.DistinctWords() << '\n';
    for (const auto& row : statistics.rows) {
        for (const WordOccurrences& word : row) {
            context.out << Utf16ToUtf8(word.word) << '\t' << word.count
                        << (word.unknown ? "\tunknown" : "") << '\n';
        }
    }
    return kExitDone;
}

}  // namespace

int RunLinguisticsCommand(CliContext& context, const std::string& command,
                          const Arguments& arguments) {
    Arguments operands;
    bool unknown = false;
    for (const std::string& argument : arguments) {
        if (command == "stats" && argument == "--unknown") {
            unknown = true;
        } else if (argument.empty() || argument.starts_with("-")) {
            operands.clear();
            break;
        } else {
            operands.push_back(argument);
        }
    }
    if (operands.size() == 1) {
        if (command == "spell") return Spell(context, operands[0]);
        if (command == "synonyms") return Synonyms(context, operands[0]);
        return Statistics(context, operands[0], unknown);
    }
    context.err << "tessarin-cli: usage: spell STORY | synonyms WORD | stats STORY [--unknown]\n";
    return kExitUsage;
}

}  // namespace tessarin::cli
