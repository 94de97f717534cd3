#pragma once

#include "session/editor_session.h"

namespace tessarin {

// The two signature buttons beside txtSignature: button 0 signs with the user's name, button 1
// with the user's initials. At most one is pressed; the story keeps which (a pressed button is
// an enabled signature field, initialsSignature telling which one).
inline constexpr int kNameSignatureButton = 0;
inline constexpr int kInitialsSignatureButton = 1;

bool SignatureButtonPressed(const StoryRecord& story, int button);

// A press on a released button presses it, releases the other and enables the field, which is
// filled with the name or the initials when it is empty. A press on the pressed button
// releases it, and empties and disables the field. The story is marked as modified. An
// unknown button does nothing.
void PressSignatureButton(EditorSession& session, int button);

}  // namespace tessarin
