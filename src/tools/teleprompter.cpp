#include "tools/teleprompter.h"

#include <algorithm>
#include <array>
#include <utility>

#include "export/rtf_story_draft.h"

namespace tessarin {
namespace {

constexpr std::array<std::pair<std::string_view, PrompterCommand>, 8> kKeys = {{
    {"Down", PrompterCommand::Faster},
    {"+", PrompterCommand::Faster},
    {"=", PrompterCommand::Faster},
    {"Up", PrompterCommand::Slower},
    {"-", PrompterCommand::Slower},
    {"Space", PrompterCommand::Pause},
    {"Home", PrompterCommand::BackToTop},
    {"Esc", PrompterCommand::Close},
}};

constexpr double kTenthsPerLine = 10.0;
constexpr double kMsPerSecond = 1000.0;

}  // namespace

std::u16string TeleprompterText(const StoryRecord& story, const Preferences& preferences) {
    const StoryDraft draft = BuildStoryDraft(story, preferences);
    std::u16string text = draft.text.Text(0, draft.signatureStart);
    std::u16string lines;
    lines.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') continue;
        lines.push_back(text[at] == u'\r' ? u'\n' : text[at]);
    }
    while (!lines.empty() && lines.back() == u'\n')
        lines.pop_back();
    return lines;
}

PrompterCommand PrompterCommandForKey(std::string_view keyName) {
    for (const auto& [name, command] : kKeys) {
        if (name == keyName) return command;
    }
    return PrompterCommand::None;
}

void PrompterScroll::Apply(PrompterCommand command) {
    switch (command) {
        case PrompterCommand::Faster:
            speed_ = std::min(speed_ + 1, kFastest);
            break;
        case PrompterCommand::Slower:
            speed_ = std::max(speed_ - 1, kSlowest);
            break;
        case PrompterCommand::Pause:
            paused_ = !paused_;
            break;
        case PrompterCommand::BackToTop:
            position_ = 0;
            paused_ = true;
            break;
        case PrompterCommand::None:
        case PrompterCommand::Close:
            break;
    }
}

int PrompterScroll::Advance(int elapsedMs, int lineHeight, int endOffset) {
    if (paused_ || elapsedMs <= 0) return Offset();
    position_ += speed_ / kTenthsPerLine * lineHeight * (elapsedMs / kMsPerSecond);
    if (position_ >= endOffset) {
        position_ = std::max(endOffset, 0);
        paused_ = true;
    }
    return Offset();
}

}  // namespace tessarin
