#include "metadata/date_text.h"

#include <gtest/gtest.h>

#include "common/scoped_environment.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

std::optional<LocalDateTime> Date(int year, int month, int day) {
    return LocalDateTime{year, month, day};
}

TEST(ParseDate, NumericPatterns) {
    const auto english = DateLanguage::English;
    EXPECT_EQ(ParseDate("20/02/2025", "dd/MM/yyyy", english), Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("2/20/2025", "M/d/yyyy", english), Date(2025, 2, 20));
    EXPECT_EQ(ParseDate(" 2-20-2025 ", "M/d/yyyy", english), Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("20.2.2025", "dd/MM/yyyy", english), Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("2025-02-20", "yyyy-MM-dd", english), Date(2025, 2, 20));
    // Two-digit years fall in 1930 to 2029.
    EXPECT_EQ(ParseDate("20/02/29", "dd/MM/yy", english), Date(2029, 2, 20));
    EXPECT_EQ(ParseDate("20/02/30", "dd/MM/yyyy", english), Date(1930, 2, 20));
    for (const char* wrong : {"", "20/02", "20/02/2025x", "31/02/2025", "20/13/2025", "a/b/c",
                              "20/02/20255", "20 02 2025 1"}) {
        EXPECT_EQ(ParseDate(wrong, "dd/MM/yyyy", english), std::nullopt) << wrong;
    }
}

TEST(ParseDate, NamesAndQuotedText) {
    EXPECT_EQ(ParseDate("jeudi 20 f\u00e9vrier 2025", "dddd d MMMM yyyy", DateLanguage::French),
              Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("20 F\u00c9VR. 2025", "d MMM yyyy", DateLanguage::French), std::nullopt);
    EXPECT_EQ(ParseDate("20 F\u00e9VR. 2025", "d MMM yyyy", DateLanguage::French),
              Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("20 f\u00e9vr. 2025", "d MMM yyyy", DateLanguage::French),
              Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("20 FEB 2025", "d MMM yyyy", DateLanguage::French), Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("le 20 de 02", "'le' d 'de' MM", DateLanguage::English), std::nullopt);
    EXPECT_EQ(ParseDate("le 20 de 02 2025", "'le' d 'de' MM yyyy", DateLanguage::English),
              Date(2025, 2, 20));
    EXPECT_EQ(ParseDate("la 20 de 02 2025", "'le' d 'de' MM yyyy", DateLanguage::English),
              std::nullopt);
}

TEST(LongDateOfShortDateText, DateOrTextAsItStands) {
    ScopedEnvironment language("LC_ALL", "C");
    ScopedEnvironment shortDate("TESSARIN_SHORT_DATE", "M/d/yyyy");
    ScopedEnvironment longDate("TESSARIN_LONG_DATE", "dddd, MMMM d, yyyy");
    EXPECT_EQ(LongDateOfShortDateText("2/20/2025"), "Thursday, February 20, 2025");
    EXPECT_EQ(LongDateOfShortDateText("20/2/2025"), "20/2/2025");
}

}  // namespace
}  // namespace tessarin
