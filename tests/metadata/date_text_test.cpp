#include "metadata/date_text.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

// Each text read with its form and language: the day it names, or none.
TEST(ParseDate, NumericFormsNamesAndQuotedText) {
    const auto english = DateLanguage::English, french = DateLanguage::French;
    const std::optional<LocalDateTime> day = LocalDateTime{2025, 2, 20}, none;
    const struct {
        const char* text;
        const char* form;
        DateLanguage language;
        std::optional<LocalDateTime> expected;
    } cases[] = {
        {"20/02/2025", "dd/MM/yyyy", english, day},
        {"2/20/2025", "M/d/yyyy", english, day},
        {" 2-20-2025 ", "M/d/yyyy", english, day},
        {"20.2.2025", "dd/MM/yyyy", english, day},
        {"2025-02-20", "yyyy-MM-dd", english, day},
        // Two-digit years fall in 1930 to 2029.
        {"20/02/29", "dd/MM/yy", english, LocalDateTime{2029, 2, 20}},
        {"20/02/30", "dd/MM/yyyy", english, LocalDateTime{1930, 2, 20}},
        {"jeudi 20 f\u00e9vrier 2025", "dddd d MMMM yyyy", french, day},
        {"20 F\u00c9VR. 2025", "d MMM yyyy", french, none},
        {"20 F\u00e9VR. 2025", "d MMM yyyy", french, day},
        {"20 f\u00e9vr. 2025", "d MMM yyyy", french, day},
        {"20 FEB 2025", "d MMM yyyy", french, day},
        {"le 20 de 02", "'le' d 'de' MM", english, none},
        {"le 20 de 02 2025", "'le' d 'de' MM yyyy", english, day},
        {"la 20 de 02 2025", "'le' d 'de' MM yyyy", english, none},
    };
    for (const auto& row : cases)
        EXPECT_EQ(ParseDate(row.text, row.form, row.language), row.expected) << row.text;
    for (const char* wrong : {"", "20/02", "20/02/2025x", "31/02/2025", "20/13/2025", "a/b/c",
                              "20/02/20255", "20 02 2025 1"}) {
        EXPECT_EQ(ParseDate(wrong, "dd/MM/yyyy", english), std::nullopt) << wrong;
    }
}

}  // namespace
}  // namespace tessarin
