#include "editing/character_insertion.h"

#include "common/utf8.h"
#include "common/windows1252.h"
#include "config/preferences.h"
#include "config/profile_values.h"
#include "editing/clipboard.h"

namespace tessarin {

int CharacterTargetBox(const EditorSession& session) {
    return session.activeBox >= 0 && session.activeBox < kTextBoxCount ? session.activeBox
                                                                       : kMainTextBox;
}

std::string CharacterCodeText(char16_t character) {
    const std::string byte = Utf8ToWindows1252(Utf16ToUtf8(std::u16string_view(&character, 1)));
    if (byte.size() != 1 || (byte == "?" && character != u'?')) return "?";
    return std::to_string(static_cast<unsigned char>(byte[0]));
}

bool InsertCharacter(EditorSession& session, TextSelection& selection, char16_t character) {
    return PasteClipboard(session, selection,
                          TextClipboard{Utf16ToUtf8(std::u16string_view(&character, 1))});
}

int ReadCharacterSetIndex(const ProfileFile& profile) {
    return ReadInteger(profile.Load(), kConfigurationSection, "IndexCharSet", 0);
}

bool WriteCharacterSetIndex(ProfileFile& profile, int index) {
    return profile.Write(kConfigurationSection, "IndexCharSet", std::to_string(index));
}

char16_t AltGrCapitals::Typed(const EditorSession& session, char16_t typed) {
    const bool armed = armed_;
    armed_ = false;
    if (!armed || !session.preferences.UseAltGrForCaps) return typed;
    switch (typed) {
        case u'A':
            return u'\u00C6';
        case u'a':
            return u'\u00E6';
        case u'O':
            return u'\u0152';
        case u'o':
            return u'\u0153';
        case u'\u00E0':
        case u'\u00E7':
        case u'\u00E8':
        case u'\u00E9':
        case u'\u00F9':
            return static_cast<char16_t>(typed - 0x20);
        default:
            return typed;
    }
}

}  // namespace tessarin
