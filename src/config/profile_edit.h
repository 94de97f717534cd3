#pragma once

#include <optional>
#include <string>
#include <vector>

#include "config/profile_file.h"

namespace tessarin {

// The text of the preferences file with the entries set one after the other, as
// ProfileFile::Write describes it, built in one pass over the text. Nothing when a name
// cannot be written.
std::optional<std::string> ProfileTextWithEntries(const ProfileContents& contents,
                                                  const std::vector<ProfileEntry>& entries);

}  // namespace tessarin
