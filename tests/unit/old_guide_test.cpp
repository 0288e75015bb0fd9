#include "station/old_guide.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr time_t noon = 1767268800;  // 1 January 2026, 12:00 UTC
constexpr time_t one_hour = 3600;

std::string programme(const std::string& times, const std::string& id, const std::string& title) {
  return "  <programme start=\"" + times + " channel=\"" + id + "\">\n    <title>" + title +
         "</title>\n  </programme>\n";
}

class OldGuideFile : public testing::Test {
 protected:
  OldGuideFile() {
    std::string folder = (fs::temp_directory_path() / "old-guide-XXXXXX").string();
    folder_ = mkdtemp(folder.data());
  }
  ~OldGuideFile() override { fs::remove_all(folder_); }

  OldGuide guide_with(const std::string& content) {
    const std::string path = (folder_ / "guide.xml").string();
    std::ofstream(path, std::ios::binary) << content;
    return OldGuide(path);
  }

  static std::string ahead(const OldGuide& guide, const std::string& id, time_t now) {
    const FileDescriptor to(memfd_create("guide", MFD_CLOEXEC));
    EXPECT_TRUE(guide.copy_ahead(id, now, to.get()));
    EXPECT_EQ(lseek(to.get(), 0, SEEK_SET), 0);
    return read_content(to.get()).value_or("unreadable");
  }

  fs::path folder_;
};

const std::string past_programme =
    programme("20260101100000 +0000\" stop=\"20260101110000 +0000\"", "a", "Before");
const std::string now_on =
    programme("20260101113000 +0000\" stop=\"20260101130000 +0000\"", "a", "Now");
const std::string later_programme =
    programme("20260101160000 +0200\" stop=\"20260101170000 +0200\"", "a", "Later");
const std::string endless_programme = programme("20260101093000 -0530\"", "a", "Endless");
const std::string of_another =
    programme("20260101140000 +0000\" stop=\"20260101150000 +0000\"", "b &amp; c", "Other");

TEST_F(OldGuideFile, KeepsWhatEndsLater) {
  const OldGuide guide = guide_with("<tv>\n" + past_programme + now_on + later_programme +
                                    of_another + endless_programme + "</tv>\n");
  EXPECT_TRUE(guide.is_there());
  EXPECT_EQ(ahead(guide, "a", noon), now_on + later_programme + endless_programme);
  EXPECT_EQ(ahead(guide, "a", noon + one_hour), later_programme + endless_programme);
  EXPECT_EQ(ahead(guide, "b & c", noon), of_another);
  EXPECT_EQ(ahead(guide, "c", noon), "");
}

TEST_F(OldGuideFile, CountsWhatStartsInTheTime) {
  const OldGuide guide = guide_with(past_programme + now_on + later_programme + endless_programme);
  time_t last = 0;
  EXPECT_EQ(guide.count("a", noon, noon + 24 * one_hour, last), 2U);
  EXPECT_EQ(last, noon + 3 * one_hour);
  EXPECT_EQ(guide.count("a", noon + 2 * one_hour, noon + 3 * one_hour, last), 1U);
  EXPECT_EQ(last, noon + 2 * one_hour);
  EXPECT_EQ(guide.count("b", noon, noon + 24 * one_hour, last), 0U);
}

TEST_F(OldGuideFile, KnowsItsChannels) {
  const OldGuide guide = guide_with("  <channel id=\"x &lt;y\">\n  </channel>\n" + of_another);
  EXPECT_TRUE(guide.has_channel("x <y"));
  EXPECT_TRUE(guide.has_channel("b & c"));
  EXPECT_FALSE(guide.has_channel("a"));
}

TEST_F(OldGuideFile, LeavesOutWhatIsNotWhole) {
  EXPECT_EQ(ahead(guide_with(later_programme + now_on.substr(0, now_on.size() - 3)), "a", noon),
            later_programme);
  for (const char* times :
       {"2026010110000 +0000\"", "20260101100000+0000\"", "20260101100000 +00\"",
        "2026010110000x +0000\"", "\"", "20260101100000 +0000\" x=\"1\""}) {
    EXPECT_EQ(ahead(guide_with(programme(times, "a", "x") + later_programme), "a", noon),
              later_programme)
        << times;
  }
}

TEST_F(OldGuideFile, LeavesOutWhatNoReaderCouldParse) {
  const std::string times = "20260101160000 +0000\" stop=\"20260101170000 +0000\"";
  for (const char* title : {"A & B", "\xe9", "<b>", "\x01"}) {
    std::string content = now_on;
    content.append(programme(times, "a", title)).append(later_programme);
    const OldGuide guide = guide_with(content);
    const FileDescriptor to(memfd_create("guide", MFD_CLOEXEC));
    const auto found = guide.copy_ahead("a", noon, to.get());
    ASSERT_TRUE(found) << title;
    EXPECT_EQ(found->copied, 2U) << title;
    EXPECT_EQ(found->unreadable, 1U) << title;
    EXPECT_EQ(ahead(guide, "a", noon), now_on + later_programme) << title;
  }
}

TEST_F(OldGuideFile, KeepsWhatFollowsAnElementWithoutEnd) {
  const std::string cut = now_on.substr(0, now_on.size() - 5);
  EXPECT_EQ(ahead(guide_with(cut + later_programme + of_another), "a", noon), later_programme);
}

TEST_F(OldGuideFile, ManyElementsWithoutEndTakeLittleTime) {
  for (const std::string begin : {"  <channel id=\"", "  <programme start=\"", "  <channel id="}) {
    std::string content;
    while (content.size() < 1024UL * 1024) {
      content += begin;
    }
    const clock_t before = clock();
    EXPECT_FALSE(guide_with(content + "\">\n").has_channel("a")) << begin;
    EXPECT_LT(clock() - before, 2 * CLOCKS_PER_SEC) << begin;
  }
}

TEST_F(OldGuideFile, ThatIsMissingIsNoError) {
  const OldGuide guide((folder_ / "gone.xml").string());
  EXPECT_TRUE(guide.is_readable());
  EXPECT_FALSE(guide.is_there());
  EXPECT_EQ(ahead(guide, "a", noon), "");
  const OldGuide no_file(folder_.string());
  EXPECT_FALSE(no_file.is_readable());
}

TEST_F(OldGuideFile, ComparesTheSameTime) {
  StationChannel channel;
  channel.id = "a";
  const OldGuide guide = guide_with(now_on + later_programme + endless_programme);
  const GuideTimes times{noon - 12 * one_hour, noon + 24 * one_hour};
  const auto starting_at = [](time_t start) {
    Programme programme{};
    programme.start = start;
    programme.stop = start + one_hour;
    return programme;
  };
  // Two lie ahead in the old guide, the last of them three hours after noon.
  EXPECT_EQ(complaint_about_programmes({starting_at(noon)}, guide, channel, times, noon), "");
  EXPECT_EQ(
      complaint_about_programmes({starting_at(noon + 3 * one_hour)}, guide, channel, times, noon),
      "");
  EXPECT_EQ(
      complaint_about_programmes({starting_at(noon - 1), starting_at(noon + 3 * one_hour + 1)},
                                 guide, channel, times, noon),
      "programmes ahead: 0, fewer than 50 percent of the 2 in the old guide");
  EXPECT_EQ(complaint_about_programmes({}, OldGuide(), channel, times, noon), "");
}

}  // namespace
