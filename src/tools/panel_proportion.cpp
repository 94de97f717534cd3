#include "tools/panel_proportion.h"

#include <algorithm>
#include <cmath>

namespace tessarin {

std::optional<std::int32_t> ProportionOf(int first, int whole) {
    if (whole <= 0 || first < 0) return std::nullopt;
    const double share = static_cast<double>(first) * kProportionScale / whole;
    return static_cast<std::int32_t>(std::lround(std::min<double>(share, kProportionScale)));
}

std::optional<std::pair<int, int>> SizesForProportion(std::optional<std::int32_t> share,
                                                      int whole) {
    if (!share || *share <= 0 || *share >= kProportionScale || whole <= 0) return std::nullopt;
    const auto first =
        static_cast<int>(std::lround(static_cast<double>(whole) * *share / kProportionScale));
    return std::pair{first, whole - first};
}

}  // namespace tessarin
