#include "common/clock.h"

#include <gtest/gtest.h>

#include "scoped_environment.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

TEST(Clock, FrozenNowComesFromTheEnvironment) {
    ScopedEnvironment now("TESSARIN_NOW", "2024-02-29T23:59:58");
    EXPECT_EQ(Now(), (LocalDateTime{2024, 2, 29, 23, 59, 58}));
}

TEST(Clock, MalformedFrozenNowFallsBackToTheSystemClock) {
    ScopedEnvironment now("TESSARIN_NOW", "2023-02-29T10:00:00");
    const LocalDateTime current = Now();
    EXPECT_GE(current.year, 2024);
    EXPECT_TRUE(IsValidDate(current.year, current.month, current.day));
}

TEST(Clock, SystemClockFollowsTheTimeZone) {
    ScopedEnvironment now("TESSARIN_NOW", std::nullopt);
    ScopedEnvironment utc("TZ", "UTC");
    const LocalDateTime inUtc = Now();
    ScopedEnvironment tokyo("TZ", "Asia/Tokyo");  // UTC+9 all year
    const LocalDateTime inTokyo = Now();
    const int utcMinutes = inUtc.hour * 60 + inUtc.minute;
    const int tokyoMinutes = inTokyo.hour * 60 + inTokyo.minute;
    const int difference = ((tokyoMinutes - utcMinutes) % 1440 + 1440) % 1440;
    EXPECT_NEAR(difference, 540, 1);
}

TEST(ParseIsoDateTime, AcceptsOnlyTheExactForm) {
    EXPECT_EQ(ParseIsoDateTime("2001-09-10T07:05:03"), (LocalDateTime{2001, 9, 10, 7, 5, 3}));
    EXPECT_EQ(ParseIsoDateTime("2001-09-10 07:05:03"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2001-09-10T07:05"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2001-9-10T07:05:03 "), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2001-09-31T07:05:03"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2001-13-01T07:05:03"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2001-09-10T24:00:00"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2001-09-10T23:60:00"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2001-09-10T23:00:60"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("+001-09-10T07:05:03"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime(""), std::nullopt);
}

TEST(Calendar, AddDaysAcrossMonthsYearsAndLeapDays) {
    const LocalDateTime leap{2024, 2, 28, 13, 14, 15};
    EXPECT_EQ(AddDays(leap, 1), (LocalDateTime{2024, 2, 29, 13, 14, 15}));
    EXPECT_EQ(AddDays(leap, 2), (LocalDateTime{2024, 3, 1, 13, 14, 15}));
    EXPECT_EQ(AddDays({2023, 2, 28}, 1), (LocalDateTime{2023, 3, 1}));
    EXPECT_EQ(AddDays({2024, 1, 1}, -1), (LocalDateTime{2023, 12, 31}));
    EXPECT_EQ(AddDays({2024, 1, 1}, 366), (LocalDateTime{2025, 1, 1}));
    EXPECT_EQ(AddDays({2024, 1, 1}, 0), (LocalDateTime{2024, 1, 1}));
}

TEST(Calendar, DayOfWeekCountsFromSunday) {
    EXPECT_EQ(DayOfWeek({2024, 3, 3}), 0);  // a Sunday
    EXPECT_EQ(DayOfWeek({2024, 3, 4}), 1);
    EXPECT_EQ(DayOfWeek({2000, 1, 1}), 6);  // a Saturday
}

TEST(Calendar, ValidDates) {
    EXPECT_TRUE(IsValidDate(2000, 2, 29));
    EXPECT_FALSE(IsValidDate(1900, 2, 29));
    EXPECT_FALSE(IsValidDate(2023, 4, 31));
    EXPECT_FALSE(IsValidDate(2023, 0, 1));
    EXPECT_FALSE(IsValidDate(2023, 1, 0));
    EXPECT_FALSE(IsValidDate(0, 1, 1));
}

TEST(TimeZoneBaseBias, StandardTimeWithoutDaylightSaving) {
    const auto biasIn = [](const char* zone) {
        ScopedEnvironment tz("TZ", zone);
        return TimeZoneBaseBiasMinutes();
    };
    EXPECT_EQ(biasIn("Europe/Paris"), -60);
    EXPECT_EQ(biasIn("America/New_York"), 300);
    EXPECT_EQ(biasIn("UTC"), 0);
    EXPECT_EQ(biasIn("Australia/Sydney"), -600);  // summer in January
    EXPECT_EQ(biasIn("Europe/Dublin"), 0);        // winter time is the base
    EXPECT_EQ(biasIn("Asia/Kolkata"), -330);
}

}  // namespace
}  // namespace tessarin
