#include "tools/panel_proportion.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

// A share taken from one size of the window gives the same proportion at any other size, and
// the parts always fill the whole.
TEST(PanelProportion, ShareSurvivesAnyWindowSize) {
    const auto share = ProportionOf(300, 1200);
    ASSERT_EQ(share, 2500);
    for (const int whole : {1200, 801, 4000, 7}) {
        const auto sizes = SizesForProportion(share, whole);
        ASSERT_TRUE(sizes);
        EXPECT_EQ(sizes->first + sizes->second, whole);
        EXPECT_NEAR(sizes->first, whole / 4.0, 0.5);
    }
}

// Values that are no share leave the designed sizes: nothing stored, an empty or full part,
// a pixel count written by an earlier version, a split without size.
TEST(PanelProportion, ValuesThatAreNoShareAreIgnored) {
    for (const std::optional<std::int32_t> stored :
         {std::optional<std::int32_t>{}, std::optional<std::int32_t>{0},
          std::optional<std::int32_t>{kProportionScale}, std::optional<std::int32_t>{-40},
          std::optional<std::int32_t>{24000}}) {
        EXPECT_FALSE(SizesForProportion(stored, 900));
    }
    EXPECT_FALSE(SizesForProportion(5000, 0));
    EXPECT_FALSE(ProportionOf(10, 0));
    EXPECT_EQ(ProportionOf(0, 900), 0);
}

}  // namespace
}  // namespace tessarin
