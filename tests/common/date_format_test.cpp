#include "common/date_format.h"

#include <gtest/gtest.h>

#include "scoped_environment.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

const LocalDateTime kMonday{2024, 3, 4, 9, 5, 7};
const LocalDateTime kFebruaryFirst{2009, 2, 1, 23, 0, 0};  // a Sunday

TEST(FormatDate, EveryFieldQuotedTextAndOtherCharacters) {
    constexpr DateLanguage kEn = DateLanguage::English, kFr = DateLanguage::French;
    const struct {
        LocalDateTime when;
        const char* pattern;
        DateLanguage language;
        const char* expected;
    } rows[] = {
        {kMonday, "d dd ddd dddd", kEn, "4 04 Mon Monday"},
        {kMonday, "M MM MMM MMMM", kEn, "3 03 Mar March"},
        {kMonday, "yy yyyy", kEn, "24 2024"},
        {{2005, 12, 25}, "y/MM/dd", kEn, "5/12/25"},
        {kFebruaryFirst, "dddd, MMMM d, yyyy", kEn, "Sunday, February 1, 2009"},
        {kMonday, "dddd d MMMM yyyy", kFr, "lundi 4 mars 2024"},
        {kMonday, "ddd MMM", kFr, "lun. mars"},
        {kFebruaryFirst, "dddd dd MMMM", kFr, "dimanche 01 février"},
        {{2024, 8, 15}, "d MMMM", kFr, "15 août"},
        {{2024, 12, 1}, "MMM MMMM", kFr, "déc. décembre"},
        {kMonday, "'day' d 'of' MMMM", kEn, "day 4 of March"},
        {kMonday, "dd-MM.yyyy h", kEn, "04-03.2024 h"},
        {kMonday, "d''M 'it''s'", kEn, "4'3 it's"},
        {kMonday, "'unclosed d", kEn, "unclosed d"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FormatDate(row.when, row.pattern, row.language), row.expected) << row.pattern;
}

TEST(DateLanguage, FirstSetLocaleVariableDecides) {
    ScopedEnvironment all("LC_ALL", std::nullopt);
    ScopedEnvironment time("LC_TIME", "fr_FR.UTF-8");
    ScopedEnvironment lang("LANG", "en_US.UTF-8");
    EXPECT_EQ(CurrentDateLanguage(), DateLanguage::French);
    {
        ScopedEnvironment english("LC_ALL", "C");
        EXPECT_EQ(CurrentDateLanguage(), DateLanguage::English);
    }
    ScopedEnvironment noTime("LC_TIME", "");
    EXPECT_EQ(CurrentDateLanguage(), DateLanguage::English);
}

TEST(DatePatterns, LocaleDefaultsAndOverrides) {
    ScopedEnvironment all("LC_ALL", "fr_FR.UTF-8");
    ScopedEnvironment shortDate("TESSARIN_SHORT_DATE", std::nullopt);
    ScopedEnvironment longDate("TESSARIN_LONG_DATE", std::nullopt);
    EXPECT_EQ(FormatShortDate(kMonday), "04/03/2024");
    EXPECT_EQ(FormatLongDate(kMonday), "lundi 4 mars 2024");
    EXPECT_EQ(DateOrder(), 1);
    {
        ScopedEnvironment english("LC_ALL", "en_GB.UTF-8");
        EXPECT_EQ(FormatShortDate(kMonday), "3/4/2024");
        EXPECT_EQ(FormatLongDate(kMonday), "Monday, March 4, 2024");
        EXPECT_EQ(DateOrder(), 0);
    }
    ScopedEnvironment isoShort("TESSARIN_SHORT_DATE", "yyyy-MM-dd");
    ScopedEnvironment customLong("TESSARIN_LONG_DATE", "d MMM yy");
    EXPECT_EQ(FormatShortDate(kMonday), "2024-03-04");
    EXPECT_EQ(FormatLongDate(kMonday), "4 mars 24");
    EXPECT_EQ(DateOrder(), 2);
    ScopedEnvironment quoted("TESSARIN_SHORT_DATE", "'year' dd.MM.yyyy");
    EXPECT_EQ(DateOrder(), 1);  // quoted letters do not count
}

}  // namespace
}  // namespace tessarin
