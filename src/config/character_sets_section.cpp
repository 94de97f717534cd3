#include "config/character_sets_section.h"

#include "common/utf8.h"
#include "config/text_trim.h"

namespace tessarin {

CharacterSets ReadCharacterSets(const XmlNode& insertCharacters) {
    CharacterSets sets;
    if (!insertCharacters) return sets;
    for (const XmlNode& set : insertCharacters.SelectNodes("InsertSetOfCharacters/Set")) {
        std::string name(TrimWhitespace(set.Attribute("Name")));
        std::u16string characters;
        for (char16_t unit : Utf8ToUtf16(set.Text())) {
            if (unit != u' ' && unit != u'\t' && unit != u'\r' && unit != u'\n') {
                characters += unit;
            }
        }
        if (name.empty() || characters.empty()) continue;
        sets.names.push_back(std::move(name));
        sets.characters.push_back(std::move(characters));
    }
    return sets;
}

CharacterSets LoadCharacterSets(const std::filesystem::path& configurationFile) {
    XmlDocument document;
    if (!document.LoadFile(configurationFile)) return {};
    return ReadCharacterSets(document.DocumentElement().SelectSingleNode("InsertCharacters"));
}

}  // namespace tessarin
