#pragma once

#include <cstdint>
#include <optional>
#include <utility>

namespace tessarin {

// A window split in two keeps where its bar stands as the first part's share of the whole, in
// ten-thousandths, so that the parts keep their proportions when the window changes size and
// the preferences file holds the share as a plain integer (SizeBarV=3500: the first part
// takes 35 %).
inline constexpr std::int32_t kProportionScale = 10000;

// The share of the first part; nothing for a split that has no size yet.
std::optional<std::int32_t> ProportionOf(int first, int whole);

// The sizes of the two parts that a stored share gives a split of the size whole, in whole
// pixels that add up to it. Nothing when the value is not a share strictly between 0 and the
// scale (a missing key, a pixel count that an earlier version wrote): the split then keeps
// its designed sizes.
std::optional<std::pair<int, int>> SizesForProportion(std::optional<std::int32_t> share, int whole);

}  // namespace tessarin
