#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "common/xml_document.h"

namespace tessarin {

// The sets of frmInsertCharacters: the configuration's InsertCharacters section holds, under
// InsertSetOfCharacters, one Set element per set, its Name attribute the set's name and its
// text the set's characters. Kept as two parallel lists, as the window lists them.
struct CharacterSets {
    std::vector<std::string> names;
    std::vector<std::u16string> characters;
};

// Sets without a name or without characters are left out; a missing section gives none.
CharacterSets ReadCharacterSets(const XmlNode& insertCharacters);

// The sets of the configuration file, read when the window opens; none when the file cannot
// be read.
CharacterSets LoadCharacterSets(const std::filesystem::path& configurationFile);

}  // namespace tessarin
