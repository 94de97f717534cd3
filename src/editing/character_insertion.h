#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// frmInsertCharacters puts a character of a configured set over the selection of the active
// box (box 6 when no box is active); UseAltGrForCaps makes accented capitals and ligatures
// reachable from the keyboard.

// The box the window works on.
int CharacterTargetBox(const EditorSession& session);

// lblDecimal: the character's code in the 8-bit code page, as a decimal number ("?" for one
// that the code page lacks).
std::string CharacterCodeText(char16_t character);

// OK or a double click: the character replaces the selection unless that holds an anchor; an
// undo step is recorded and the story is modified. The caret ends behind the character.
bool InsertCharacter(EditorSession& session, TextSelection& selection, char16_t character);

// The IndexCharSet of the preferences (section Configuration): read when the window opens,
// written when it closes.
int ReadCharacterSetIndex(const ProfileFile& profile);
bool WriteCharacterSetIndex(ProfileFile& profile, int index);

// The AltGr key arms the next typed character: with UseAltGrForCaps on, "A" and "a" become
// Æ and æ, "O" and "o" Œ and œ, à, ç, è, é and ù their capitals; any other character goes
// through as it is, and the key is disarmed all the same.
class AltGrCapitals {
  public:
    void AltGrPressed() { armed_ = true; }
    char16_t Typed(const EditorSession& session, char16_t typed);

  private:
    bool armed_ = false;
};

}  // namespace tessarin
