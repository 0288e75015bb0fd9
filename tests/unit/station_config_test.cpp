#include "station/station_config.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<StationChannel> channels_of(const std::string& text) {
  std::vector<ConfigMistake> mistakes;
  std::vector<StationChannel> channels = parse_station_config(text, mistakes);
  EXPECT_TRUE(mistakes.empty()) << mistakes.front().text;
  return channels;
}

std::string mistakes_of(const std::string& text) {
  std::vector<ConfigMistake> mistakes;
  parse_station_config(text, mistakes);
  std::string lines;
  for (const ConfigMistake& mistake : mistakes) {
    lines += std::to_string(mistake.line) + ": " + mistake.text + "\n";
  }
  return lines;
}

constexpr const char* one = "[a]\nzone = UTC\nfolder = /a\nschedule = s\n";

TEST(StationConfig, AnOldConfigurationHasTheUsualGuards) {
  const auto channels = channels_of(one);
  ASSERT_EQ(channels.size(), 1U);
  EXPECT_EQ(channels[0].name, "a");
  EXPECT_EQ(channels[0].formats, std::vector<std::string>{"html"});
  EXPECT_EQ(channels[0].web_folder, "/var/www/guide");
  EXPECT_EQ(channels[0].check, CheckLevel::errors);
  EXPECT_EQ(channels[0].min_items, 1U);
  EXPECT_EQ(channels[0].min_percent, 50U);
  EXPECT_EQ(channels[0].line, 1);
}

TEST(StationConfig, DefaultsHoldWhereAChannelSaysNothing) {
  const auto channels = channels_of(
      "[a]\n[b]\nzone = EST5\nlanguage =\nfolder = /own/%i\nrendermgr = r\nmin-items = 0\n"
      "[*]\nzone = UTC\nlanguage = en\nfolder = /all/%i/100%%\nschedule = s\nmin-items = 7\n");
  ASSERT_EQ(channels.size(), 2U);
  EXPECT_EQ(channels[0].zone, "UTC");
  EXPECT_EQ(channels[0].language, "en");
  EXPECT_EQ(channels[0].folder, "/all/a/100%");
  EXPECT_EQ(channels[0].schedule, "s");
  EXPECT_EQ(channels[0].min_items, 7U);
  EXPECT_EQ(channels[1].zone, "EST5");
  EXPECT_EQ(channels[1].language, "");
  EXPECT_EQ(channels[1].folder, "/own/%i");
  EXPECT_EQ(channels[1].schedule, "");
  EXPECT_EQ(channels[1].rendermgr, "r");
  EXPECT_EQ(channels[1].min_items, 0U);
}

TEST(StationConfig, ReadsTheKeysOfPages) {
  const auto channels = channels_of(std::string(one) +
                                    "formats = json \t html\ncheck = warnings\nmin-percent = 100\n"
                                    "station-id = KBT 1\nweb-folder = /web  ; a comment\n");
  EXPECT_EQ(channels[0].formats, (std::vector<std::string>{"json", "html"}));
  EXPECT_EQ(channels[0].check, CheckLevel::warnings);
  EXPECT_EQ(channels[0].min_percent, 100U);
  EXPECT_EQ(channels[0].station_id, "KBT 1");
  EXPECT_EQ(channels[0].web_folder, "/web");
}

TEST(StationConfig, AChannelHasAPage) {
  EXPECT_EQ(mistakes_of(one + std::string("formats =  ; none")), "5: 'formats' names no format\n");
}

TEST(StationConfig, NumbersHaveBounds) {
  for (const std::string value : {"0", "100"}) {
    EXPECT_EQ(mistakes_of(one + ("min-percent = " + value)), "") << value;
  }
  for (const std::string value : {"101", "-1", "", "5%", "1 2", "99999999999"}) {
    EXPECT_EQ(mistakes_of(one + ("min-percent = " + value)),
              "5: 'min-percent' is a number from 0 to 100\n")
        << value;
  }
  EXPECT_EQ(mistakes_of(one + std::string("min-items = 1000000000")), "");
  EXPECT_EQ(mistakes_of(one + std::string("min-items = 1000000001")),
            "5: 'min-items' is a number from 0 to 1000000000\n");
}

TEST(StationConfig, OneMistakeIsOneLine) {
  EXPECT_EQ(mistakes_of("[a]\nzone = UTC\nfolder = /a\nshedule = s\n"),
            "4: unknown key 'shedule'; did you mean 'schedule'?\n");
  EXPECT_EQ(mistakes_of("[a\nzone = x\n[b]\nzone = UTC\nfolder = /b\nschedule = s\n"),
            "1: no ']' ends the channel's id\n");
  EXPECT_EQ(mistakes_of("[*]\nfolder = /%d\n"),
            "2: in the folder of [*], %i is the channel's id and %% a percent sign\n");
  EXPECT_EQ(mistakes_of("[*]\n[*]\n"), "2: the section [*] is there twice\n");
}

TEST(StationConfig, IdsAreTextsOfAGuide) {
  EXPECT_TRUE(is_channel_id("kbt1.example"));
  for (const char* id : {"", "*", " a", "a  b", "a\x01", "\xff"}) {
    EXPECT_FALSE(is_channel_id(id)) << id;
  }
}

}  // namespace
