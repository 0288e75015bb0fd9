#include "platform/media/mp4_parts.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/system/file.hpp"

namespace {

constexpr size_t many_reads = 1000;

std::string number(size_t value, size_t digits) {
  std::string text;
  for (size_t i = digits; i-- > 0;) {
    const size_t shifted = i < sizeof(value) ? value >> (i * 8) : 0;
    text += static_cast<char>(shifted & 0xffU);
  }
  return text;
}

std::string box(const std::string& name, const std::string& content = "") {
  return number(8 + content.size(), 4) + name + content;
}

/// The head of a box of that size in all, whose content is not written.
std::string head(const std::string& name, size_t size) {
  return number(size, 4) + name;
}

std::string long_head(const std::string& name, size_t size) {
  return number(1, 4) + name + number(size, 8);
}

class MediaFile {
 public:
  MediaFile() : file_(memfd_create("media", MFD_CLOEXEC)) {}

  MediaFile& write(long place, const std::string& bytes) {
    EXPECT_EQ(pwrite(file_.get(), bytes.data(), bytes.size(), place),
              static_cast<ssize_t>(bytes.size()));
    length_ = std::max(length_, place + static_cast<long>(bytes.size()));
    return *this;
  }

  Mp4Parts parts(size_t reads = many_reads) const { return parts_of_length(length_, reads); }

  /// As if it once had that length.
  Mp4Parts parts_of_length(long length, size_t reads = many_reads) const {
    MediaSource source(file_.get(), length);
    EXPECT_TRUE(source.read_head());
    return find_mp4_parts(source, reads);
  }

  bool tags_end_within(long most_bytes) const {
    MediaSource source(file_.get(), length_);
    EXPECT_TRUE(source.read_head());
    return mp4_tags_end_within(source, most_bytes);
  }

 private:
  FileDescriptor file_;
  long length_ = 0;
};

using Places = std::vector<std::pair<long, long>>;

Places places(const Mp4Parts& found) {
  Places places;
  for (const FilePart& part : found.parts) {
    places.emplace_back(part.start, part.size);
  }
  return places;
}

Places places_in(const std::string& content) {
  return places(MediaFile().write(0, content).parts());
}

const std::string file_type = box("ftyp", "isom");  // 12 bytes
const std::string movie = box("moov", "inner");     // 13 bytes
const Places file_type_alone = {{0, 12}};

Places places_behind_type(const std::string& content) {
  return places_in(file_type + content);
}

TEST(Mp4Parts, AreTheTypeAndTheFirstMovie) {
  EXPECT_EQ(places_in(file_type + movie), (Places{{0, 12}, {12, 13}}));
  EXPECT_EQ(places_in(file_type + box("mdat", "sample") + movie), (Places{{0, 12}, {26, 13}}));
  EXPECT_EQ(places_in(movie), (Places{{0, 13}}));
  EXPECT_EQ(places_in(file_type + movie + movie + file_type), (Places{{0, 12}, {12, 13}}));
  EXPECT_EQ(places_in(file_type + file_type + movie), (Places{{0, 12}, {24, 13}}));
  EXPECT_EQ(places_in(file_type + box("free") + box("udta", "x")), file_type_alone);
  EXPECT_EQ(places_in(""), Places());
}

TEST(Mp4Parts, SizeZeroIsTheRestOfTheFile) {
  EXPECT_EQ(places_in(file_type + head("moov", 0) + "inner"), (Places{{0, 12}, {12, 13}}));
  EXPECT_EQ(places_in(file_type + head("mdat", 0) + movie), file_type_alone);
}

TEST(Mp4Parts, SizesOf64BitsCount) {
  constexpr long place = 12 + 5'000'000'000;
  const MediaFile file = std::move(MediaFile()
                                       .write(0, file_type + long_head("mdat", 5'000'000'000))
                                       .write(place, long_head("moov", 20) + "four"));
  EXPECT_EQ(places(file.parts()), (Places{{0, 12}, {place, 20}}));
}

TEST(Mp4Parts, ABoxWhoseSizeCannotBeEndsTheSearch) {
  const std::string behind = movie + std::string(100, '\0');
  for (const size_t size : {size_t{2}, size_t{7}, size_t{1000}}) {
    EXPECT_EQ(places_behind_type(head("mdat", size) + behind), file_type_alone) << size;
    EXPECT_EQ(places_behind_type(head("moov", size) + behind), file_type_alone) << size;
  }
  for (const size_t size : {size_t{0}, size_t{7}, size_t{1000}, size_t{1} << 63U, ~size_t{0}}) {
    EXPECT_EQ(places_behind_type(long_head("mdat", size) + behind), file_type_alone) << size;
  }
  EXPECT_EQ(places_in(file_type + number(0, 3)), file_type_alone);
  EXPECT_EQ(places_in(file_type + number(1, 4) + "moov" + "1234567"), file_type_alone);
}

TEST(Mp4Parts, ABoxMayEndWithTheFile) {
  EXPECT_EQ(places_in(file_type + head("mdat", 21) + movie), file_type_alone);
  EXPECT_EQ(places_in(file_type + head("mdat", 8) + movie), (Places{{0, 12}, {20, 13}}));
}

TEST(Mp4Parts, SmallBoxesAreReadTogether) {
  MediaFile file;
  std::string boxes;
  for (int i = 0; i < 10'000; ++i) {
    boxes += box("free");
  }
  file.write(0, boxes + movie);
  EXPECT_EQ(places(file.parts(21)), (Places{{80'000, 13}}));
}

TEST(Mp4Parts, MoreReadsThanAllowedAreTooMuch) {
  constexpr long distance = 100'000;
  MediaFile file;
  for (int i = 0; i < 10; ++i) {
    file.write(i * distance, head("mdat", distance));
  }
  file.write(10 * distance, movie);
  EXPECT_EQ(places(file.parts(11)), (Places{{10 * distance, 13}}));
  const Mp4Parts found = file.parts(10);
  EXPECT_EQ(found.outcome, TagsOutcome::spent);
  EXPECT_TRUE(found.parts.empty());
}

std::string made_whole(std::string block) {
  make_mp4_texts_whole(block.data(), block.size());
  return block;
}

/// The value of a tag, of that kind: 1 is a text.
std::string data(const std::string& content, size_t kind = 1) {
  return box("data", number(kind, 4) + number(0, 4) + content);
}

TEST(Mp4Texts, BlanksStandForNulBytesInTheirMidst) {
  const std::string text("\0a\0\0b\0\0", 7);
  const std::string whole = " a  b" + number(0, 2);
  EXPECT_EQ(made_whole(data(text)), data(whole));
  EXPECT_EQ(made_whole(data(text) + data(text)), data(whole) + data(whole));
  EXPECT_EQ(made_whole(box("mean", number(0, 8)) + data(text)),
            box("mean", number(0, 8)) + data(whole));
}

TEST(Mp4Texts, WhatIsNoTextStays) {
  const std::string bytes("\0a\0b", 4);
  for (const std::string& block :
       {std::string(), number(0, 20), data(bytes, 0), data(bytes, 21), data(""), data(number(0, 9)),
        box("free", data(bytes)), data(bytes).substr(0, 18),
        head("data", 30) + number(1, 4) + bytes}) {
    EXPECT_EQ(made_whole(block), block);
  }
}

TEST(Mp4Parts, AFileThatCannotBeReadHasFailed) {
  MediaSource unreadable(-1, 1000);
  EXPECT_FALSE(unreadable.read_head());
}

TEST(Mp4Parts, AFileThatCannotBeReadFurtherHasFailed) {
  FileDescriptor file(memfd_create("media", MFD_CLOEXEC));
  const std::string beginning = file_type + head("mdat", 10000);
  ASSERT_TRUE(write_fully(file.get(), beginning));
  MediaSource source(file.get(), 20000);
  ASSERT_TRUE(source.read_head());
  file.reset();
  const Mp4Parts found = find_mp4_parts(source, many_reads);
  EXPECT_EQ(found.outcome, TagsOutcome::failed);
  EXPECT_TRUE(found.parts.empty());
}

TEST(Mp4Parts, TheHeadShowsHowFarTagsMayReach) {
  const long type_size = static_cast<long>(file_type.size());
  const std::string whole = file_type + box("moov", std::string(992, 'x')) + head("mdat", 100000);
  EXPECT_TRUE(MediaFile().write(0, whole).write(101000, "x").tags_end_within(1000));
  EXPECT_FALSE(MediaFile().write(0, whole).write(101000, "x").tags_end_within(999));

  const std::string samples_first = file_type + head("mdat", 100000);
  const long end = type_size + 100000;
  MediaFile at_end;
  at_end.write(0, samples_first).write(end, std::string(500, 'x'));
  EXPECT_TRUE(at_end.tags_end_within(500));
  EXPECT_FALSE(at_end.tags_end_within(499));

  EXPECT_TRUE(MediaFile().write(0, file_type + number(0, 100)).write(9999, "x").tags_end_within(10))
      << "nothing is looked for behind what is no box";
}

TEST(Mp4Parts, AFileMayShrinkWhileItIsRead) {
  const MediaFile file = std::move(MediaFile().write(0, file_type));
  EXPECT_EQ(places(file.parts_of_length(1000)), file_type_alone);
}

}  // namespace
