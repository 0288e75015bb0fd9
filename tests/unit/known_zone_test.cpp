#include "platform/time/known_zone.hpp"

#include <gtest/gtest.h>

TEST(KnownZone, ZonesOfTheDatabaseAreKnownByNameAndByPath) {
  for (const char* zone : {"UTC", "Europe/London", ":Europe/London", "America/Argentina/Ushuaia",
                           "/usr/share/zoneinfo/Europe/London",
                           ":/usr/share/zoneinfo/Europe/London", "Europe/../Asia/Tokyo"}) {
    EXPECT_TRUE(is_known_zone(zone)) << zone;
  }
}

TEST(KnownZone, ZonesThatAreWrittenOutAreKnown) {
  for (const char* zone : {"EST5", "EST+5", ":EST5", "EST5EDT,M3.2.0,M11.1.0", "<+03>-3",
                           "<-0330>3:30", "NZST-12NZDT,M9.5.0,M4.1.0/3"}) {
    EXPECT_TRUE(is_known_zone(zone)) << zone;
  }
}

TEST(KnownZone, AnyOtherTextIsNone) {
  for (const char* zone :
       {"", ":", "Europe", "Europe/Lodnon", "Foo", "zone.tab", "/etc/passwd", "/", "AB5", "<A>5",
        "<>5", "<", "<+03", "<+03>", "EST+", "5", " EST5", "\xff\xff\xff"}) {
    EXPECT_FALSE(is_known_zone(zone)) << zone;
  }
}
