#include "common/clock.h"

#include <gtest/gtest.h>

#include "scoped_environment.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

TEST(Clock, AMalformedFrozenNowGivesTheSystemClockInTheTimeZone) {
    {
        ScopedEnvironment malformed("TESSARIN_NOW", "2023-02-29T10:00:00");
        EXPECT_GE(Now().year, 2024);
    }
    ScopedEnvironment now("TESSARIN_NOW", std::nullopt);
    ScopedEnvironment utc("TZ", "UTC");
    const LocalDateTime inUtc = Now();
    ScopedEnvironment tokyo("TZ", "Asia/Tokyo");  // UTC+9 all year
    const LocalDateTime inTokyo = Now();
    const int minutes = (inTokyo.hour - inUtc.hour) * 60 + inTokyo.minute - inUtc.minute;
    EXPECT_NEAR((minutes % 1440 + 1440) % 1440, 540, 1);
}

TEST(ParseIsoDateTime, AcceptsOnlyTheExactForm) {
    EXPECT_EQ(ParseIsoDateTime("2001-09-10T07:05:03"), (LocalDateTime{2001, 9, 10, 7, 5, 3}));
    for (const char* text :
         {"2001-09-10 07:05:03", "2001-09-10T07:05", "2001-9-10T07:05:03 ", "2001-09-31T07:05:03",
          "2001-13-01T07:05:03", "2001-09-10T24:00:00", "2001-09-10T23:60:00",
          "2001-09-10T23:00:60", "+001-09-10T07:05:03", ""}) {
        EXPECT_EQ(ParseIsoDateTime(text), std::nullopt) << text;
    }
}

TEST(Calendar, AddDaysDayOfWeekAndValidDates) {
    EXPECT_EQ(AddDays({2024, 2, 28, 13, 14, 15}, 2), (LocalDateTime{2024, 3, 1, 13, 14, 15}));
    EXPECT_EQ(AddDays({2023, 2, 28}, 1), (LocalDateTime{2023, 3, 1}));
    EXPECT_EQ(AddDays({2024, 1, 1}, -1), (LocalDateTime{2023, 12, 31}));
    EXPECT_EQ(AddDays({2024, 1, 1}, 366), (LocalDateTime{2025, 1, 1}));
    EXPECT_EQ(DayOfWeek({2024, 3, 3}), 0);  // a Sunday
    EXPECT_EQ(DayOfWeek({2000, 1, 1}), 6);  // a Saturday
    EXPECT_TRUE(IsValidDate(2000, 2, 29));
    for (const LocalDateTime& invalid :
         {LocalDateTime{1900, 2, 29}, {2023, 4, 31}, {2023, 0, 1}, {2023, 1, 0}, {0, 1, 1}}) {
        EXPECT_FALSE(IsValidDate(invalid.year, invalid.month, invalid.day)) << invalid.year;
    }
}

TEST(TimeZoneBaseBias, StandardTimeWithoutDaylightSaving) {
    // Sydney is in summer time in January; Dublin calls its winter time the exception.
    for (const auto& [zone, bias] : {std::pair{"Europe/Paris", -60},
                                     {"America/New_York", 300},
                                     {"UTC", 0},
                                     {"Australia/Sydney", -600},
                                     {"Europe/Dublin", 0},
                                     {"Asia/Kolkata", -330}}) {
        ScopedEnvironment tz("TZ", zone);
        EXPECT_EQ(TimeZoneBaseBiasMinutes(), bias) << zone;
    }
}

}  // namespace
}  // namespace tessarin
