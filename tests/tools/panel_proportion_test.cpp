#include "tools/panel_proportion.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

// A share taken at one size gives the same proportion at any other, the parts filling the
// whole; values that are no share (nothing, an empty or full part, a pixel count of an
// earlier version) and splits without size keep the designed sizes.
TEST(PanelProportion, ShareSurvivesAnyWindowSize) {
    const auto share = ProportionOf(300, 1200);
    ASSERT_EQ(share, 2500);
    for (const int whole : {1200, 801, 7}) {
        const auto sizes = SizesForProportion(share, whole);
        ASSERT_TRUE(sizes);
        EXPECT_EQ(sizes->first + sizes->second, whole);
        EXPECT_NEAR(sizes->first, whole / 4.0, 0.5);
    }
    for (const auto stored :
         {std::optional<std::int32_t>{}, std::optional{0}, std::optional{kProportionScale},
          std::optional{-40}, std::optional{24000}})
        EXPECT_FALSE(SizesForProportion(stored, 900));
    EXPECT_FALSE(SizesForProportion(5000, 0));
    EXPECT_FALSE(ProportionOf(10, 0));
}

}  // namespace
}  // namespace tessarin
