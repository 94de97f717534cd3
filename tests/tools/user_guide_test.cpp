#include "tools/user_guide.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

// The newsroom's own guide comes before the installed one, which comes before the source
// tree's; without any there is none.
TEST(UserGuide, FirstPlaceThatHoldsTheGuide) {
    testing::TempDir dir;
    const auto app = dir / "app";
    const auto program = dir / "prefix" / "bin";
    EXPECT_FALSE(FindUserGuide(app, program));
    const auto source = dir.Write("prefix/docs/user-guide.html", "source");
    EXPECT_EQ(FindUserGuide(app, program), source);
    const auto installed = dir.Write("prefix/share/doc/tessarin/user-guide.html", "installed");
    EXPECT_EQ(FindUserGuide(app, program), installed);
    const auto own = dir.Write("app/docs/user-guide.html", "own");
    EXPECT_EQ(FindUserGuide(app, program), own);
}

}  // namespace
}  // namespace tessarin
