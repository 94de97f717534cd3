#include "attachments/image_allowance.h"

#include <algorithm>
#include <limits>

namespace tessarin {

std::int32_t ComputeImageAllowance(const Configuration& configuration, std::string_view formName,
                                   int imageCount) {
    std::int64_t allowance = 0;
    int counted = 0;
    for (const ImageSizeRow& row : configuration.imageSizes) {
        if (counted >= imageCount) break;
        if (row.formName != formName) continue;
        allowance += row.size;
        ++counted;
    }
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(allowance, std::numeric_limits<std::int32_t>::min(),
                                 std::numeric_limits<std::int32_t>::max()));
}

}  // namespace tessarin
