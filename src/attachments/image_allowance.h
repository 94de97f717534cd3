#pragma once

#include <cstdint>
#include <string_view>

#include "config/configuration.h"

namespace tessarin {

// The number of characters that a story's images replace in the main text box: the sizes of
// the form's rows of the image size table, walked from the start, for as many rows as the
// story has images.
std::int32_t ComputeImageAllowance(const Configuration& configuration, std::string_view formName,
                                   int imageCount);

}  // namespace tessarin
