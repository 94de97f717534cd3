#pragma once

#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// What the core asks or tells the user. The desktop editor answers with dialogs, the command
// line and the tests with scripted answers. Message boxes are titled "Tessarin" and the
// version by whoever shows them.

enum class Answer { Yes, No, Cancel };
enum class MessageIcon { Information, Exclamation, Critical, Question };

class UserInteraction {
  public:
    virtual ~UserInteraction() = default;

    // A yes/no question, or yes/no/cancel when withCancel is set.
    virtual Answer Ask(std::string_view text, bool withCancel, MessageIcon icon) = 0;

    // A message box with one button.
    virtual void Tell(std::string_view text, MessageIcon icon) = 0;

    // File and folder choices; nothing when the user cancels. filter is in the form
    // "Stories XML (*.xml)|*.xml|Backup (*.bml)|*.bml".
    virtual std::optional<std::filesystem::path> ChooseFileToOpen(
        std::string_view title, std::string_view filter, const std::filesystem::path& start) = 0;
    virtual std::optional<std::filesystem::path> ChooseFileToSave(
        std::string_view title, std::string_view filter, const std::filesystem::path& start,
        std::string_view suggestedName) = 0;
    virtual std::optional<std::filesystem::path> ChooseFolder(
        std::string_view prompt, const std::filesystem::path& start) = 0;

    virtual void Beep() = 0;
};

// The name chosen in a save dialog, with the extension of the filter's first pattern added
// when the name matches none of the filter's patterns, so that the open dialog lists the file
// again: "brief" and "brief.v2" with "Stories XML (*.xml)|*.xml" give "brief.xml" and
// "brief.v2.xml"; "brief.XML" stays. A filter without such a pattern ("*.*") adds nothing.
std::filesystem::path WithFilterExtension(const std::filesystem::path& chosen,
                                          std::string_view filter);

// Answers from a script: each question takes the next queued answer, or the default answer
// when the queue is empty; each file choice the next queued path, or nothing. Everything
// that was asked or told is kept, in order, for the caller to print or check.
class ScriptedInteraction : public UserInteraction {
  public:
    explicit ScriptedInteraction(Answer defaultAnswer = Answer::Yes)
        : defaultAnswer_(defaultAnswer) {}

    void QueueAnswer(Answer answer) { answers_.push_back(answer); }
    void QueuePath(std::filesystem::path path) { paths_.push_back(std::move(path)); }

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
    void Beep() override { ++beeps; }

    // Every question and message text, in the order they came.
    std::vector<std::string> questions;
    std::vector<std::string> messages;
    int beeps = 0;

  private:
    std::optional<std::filesystem::path> NextPath();

    Answer defaultAnswer_;
    std::deque<Answer> answers_;
    std::deque<std::filesystem::path> paths_;
};

}  // namespace tessarin
