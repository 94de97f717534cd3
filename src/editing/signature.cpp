#include "editing/signature.h"

namespace tessarin {

bool SignatureButtonPressed(const StoryRecord& story, int button) {
    return story.signatureEnabled &&
           story.initialsSignature == (button == kInitialsSignatureButton);
}

void PressSignatureButton(EditorSession& session, int button) {
    if (button != kNameSignatureButton && button != kInitialsSignatureButton) return;
    StoryRecord& story = session.story;
    if (SignatureButtonPressed(story, button)) {
        story.signatureEnabled = false;
        story.initialsSignature = false;
        story.signature.clear();
    } else {
        story.signatureEnabled = true;
        story.initialsSignature = button == kInitialsSignatureButton;
        const Identity& identity = session.configuration.identity;
        if (story.signature.empty()) {
            story.signature =
                button == kInitialsSignatureButton ? identity.initials : identity.author;
        }
    }
    session.storyModified = true;
}

}  // namespace tessarin
