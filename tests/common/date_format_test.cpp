#include "common/date_format.h"

#include <gtest/gtest.h>

#include "scoped_environment.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

const LocalDateTime kMonday{2024, 3, 4, 9, 5, 7};
const LocalDateTime kFebruaryFirst{2009, 2, 1, 23, 0, 0};  // a Sunday

TEST(FormatDate, EveryFieldInEnglish) {
    const auto english = [](const LocalDateTime& when, std::string_view pattern) {
        return FormatDate(when, pattern, DateLanguage::English);
    };
    EXPECT_EQ(english(kMonday, "d dd ddd dddd"), "4 04 Mon Monday");
    EXPECT_EQ(english(kMonday, "M MM MMM MMMM"), "3 03 Mar March");
    EXPECT_EQ(english(kMonday, "yy yyyy"), "24 2024");
    EXPECT_EQ(english(kFebruaryFirst, "dddd, MMMM d, yyyy"), "Sunday, February 1, 2009");
    EXPECT_EQ(english({2005, 12, 25}, "yy/MM/dd"), "05/12/25");
}

TEST(FormatDate, EveryFieldInFrench) {
    const auto french = [](const LocalDateTime& when, std::string_view pattern) {
        return FormatDate(when, pattern, DateLanguage::French);
    };
    EXPECT_EQ(french(kMonday, "dddd d MMMM yyyy"), "lundi 4 mars 2024");
    EXPECT_EQ(french(kMonday, "ddd MMM"), "lun. mars");
    EXPECT_EQ(french(kFebruaryFirst, "dddd dd MMMM"), "dimanche 01 f\xC3\xA9vrier");
    EXPECT_EQ(french({2024, 8, 15}, "d MMMM"), "15 ao\xC3\xBBt");
    EXPECT_EQ(french({2024, 12, 1}, "MMM MMMM"),
              "d\xC3\xA9"
              "c. d\xC3\xA9"
              "cembre");
}

TEST(FormatDate, OtherCharactersAndQuotedTextAreCopied) {
    EXPECT_EQ(FormatDate(kMonday, "'day' d 'of' MMMM", DateLanguage::English), "day 4 of March");
    EXPECT_EQ(FormatDate(kMonday, "dd-MM.yyyy h", DateLanguage::English), "04-03.2024 h");
    EXPECT_EQ(FormatDate(kMonday, "d''M 'it''s'", DateLanguage::English), "4'3 it's");
    EXPECT_EQ(FormatDate(kMonday, "'unclosed d", DateLanguage::English), "unclosed d");
    EXPECT_EQ(FormatDate(kMonday, "", DateLanguage::English), "");
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
}

TEST(DatePatterns, FrozenNowInBothLanguages) {
    ScopedEnvironment now("TESSARIN_NOW", "2010-06-15T08:30:00");
    ScopedEnvironment shortDate("TESSARIN_SHORT_DATE", std::nullopt);
    ScopedEnvironment longDate("TESSARIN_LONG_DATE", std::nullopt);
    {
        ScopedEnvironment french("LC_ALL", "fr_FR");
        EXPECT_EQ(FormatShortDate(Now()) + " " + FormatTimeHourMinute(Now()), "15/06/2010 08:30");
        EXPECT_EQ(FormatLongDate(Now()), "mardi 15 juin 2010");
    }
    ScopedEnvironment english("LC_ALL", "en_US");
    EXPECT_EQ(FormatShortDate(Now()) + " " + FormatTimeHourMinute(Now()), "6/15/2010 08:30");
    EXPECT_EQ(FormatLongDate(Now()), "Tuesday, June 15, 2010");
}

TEST(DateOrder, QuotedLettersDoNotCount) {
    ScopedEnvironment shortDate("TESSARIN_SHORT_DATE", "'year' dd.MM.yyyy");
    EXPECT_EQ(DateOrder(), 1);
}

TEST(FormatTime, TwentyFourHourClockWithLeadingZeros) {
    EXPECT_EQ(FormatTimeHourMinute(kMonday), "09:05");
    EXPECT_EQ(FormatTimeHourMinuteSecond(kMonday), "09:05:07");
    EXPECT_EQ(FormatTimeHourMinuteSecond(kFebruaryFirst), "23:00:00");
}

}  // namespace
}  // namespace tessarin
