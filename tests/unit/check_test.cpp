// What the checker finds line by line, and the story of a moment.

#include <gtest/gtest.h>

#include <string>

#include "check/story.hpp"
#include "checks/checks.hpp"
#include "checks/line_checks.hpp"
#include "checks/named_files.hpp"
#include "schedule/complete_schedule.hpp"

namespace {

/// "LINE:COLUMN id: text" of each finding, and of its notes, in the order of the file.
std::string text_of(FileFindings file) {
  sort_findings(file);
  std::string text;
  const auto place = [](Place at) {
    return std::to_string(at.line) + ":" + std::to_string(at.column) + " ";
  };
  for (const Finding& finding : file.findings) {
    text +=
        place(finding.place) + std::string(info_of(finding.kind).id) + ": " + finding.text + "\n";
    for (const Note& note : finding.notes) {
      text += "  " + place(note.place) + note.text + "\n";
    }
  }
  return text;
}

/// The same of all lines of a schedule.
std::string findings_in(const std::string& content) {
  WrittenSchedule written{.content = content};
  FileFindings found{.file = "f"};
  read_and_check_lines(written, {.media = false}, found);
  return text_of(found);
}

/// The first part of a content that is of the kind.
SchedulePart part_of(const std::string& content, PartKind kind) {
  ScheduleFile file(content);
  SchedulePart part;
  while (file.next(part) && part.kind != kind) {
  }
  EXPECT_EQ(part.kind, kind);
  return part;
}

std::string id_of(const Finding& finding) {
  return std::string(info_of(finding.kind).id);
}

TEST(Findings, ShowControlCharactersAsTheirBytes) {
  EXPECT_EQ(escaped("\x1f \x7e\x7f"), "\\x1f \x7e\\x7f");
  EXPECT_EQ(escaped("\u0080\u009f\u00a0"), "\\xc2\\x80\\xc2\\x9f\u00a0");
}

TEST(NameCheck, TellsWhatALineOutsideOfSectionsWasMeantAs) {
  const auto id = [](const std::string& line) {
    return id_of(finding_for_unused_name(part_of(line, PartKind::name_value)));
  };
  EXPECT_EQ(id("Weekly "), "unknown-type");
  EXPECT_EQ(id("announce = items"), "unknown-name");
  EXPECT_EQ(id("global default ="), "no-key");
  EXPECT_EQ(id("Global Default = a"), "letter-case");
  const std::string line = "  globl default = a";
  EXPECT_EQ(text_of({"f", {finding_for_unused_name(part_of(line, PartKind::name_value))}}),
            "1:3 unknown-name: unknown name 'globl default'; did you mean 'global default'?\n");
}

TEST(NameCheck, ProposesTheNameOfASection) {
  EXPECT_EQ(did_you_mean_section("schedule blok"), "; did you mean 'schedule block'?");
  EXPECT_EQ(did_you_mean_section("defaults, day of week"),
            "; did you mean 'defaults, day of the week'?");
  EXPECT_EQ(did_you_mean_section("defaults, by dat"), "; did you mean 'defaults, by date'?");
  EXPECT_EQ(did_you_mean_section("x"), "");
}

TEST(TypeCheck, WantsTheTypeBeforeWhatNeedsIt) {
  const std::string item = "{\nitem = a\nstart = 1:00\nend = 2:00\n}\n";
  EXPECT_EQ(findings_in("*daily\n" + item), "");
  EXPECT_EQ(findings_in(item + item),
            "1:1 no-type: the times of this section need a type line before it; begin the file "
            "with '*weekly' or another type\n");
  EXPECT_EQ(findings_in(item + item + "*daily\n"),
            "11:1 late-type: the type comes after sections whose times need it; these sections do "
            "not air\n  1:1 the first of these sections\n");
  EXPECT_EQ(findings_in("\xef\xbb\xbf*daily\n" + item), "");
}

TEST(TypeCheck, SaysOfAMisspeltTypeAloneThatItIsNone) {
  EXPECT_EQ(findings_in("*wekly\n{\nitem = a\nstart = 1:00\nend = 2:00\n}\n"),
            "1:1 unknown-type: unknown type '*wekly'; did you mean '*weekly'?\n");
  EXPECT_EQ(
      findings_in("*intervals\n"),
      "1:1 unknown-type: unknown type '*intervals'; the types are daily, weekly, monthly, yearly "
      "and endless\n");
  EXPECT_EQ(
      findings_in("*weekly # x\n"),
      "1:1 unknown-type: unknown type '*weekly # x': nothing else may stand on the line; write "
      "'*weekly'\n");
  EXPECT_EQ(
      findings_in("*fortnightly\n"),
      "1:1 unknown-type: unknown type '*fortnightly'; the types are daily, weekly, monthly, yearly "
      "and endless\n");
  EXPECT_EQ(findings_in("defaults, day of the week {\nmon = a\n}\n *daily\n"),
            "2:1 no-default: no default for Sun, Tue, Wed, Thu, Fri, Sat: other days have one, and "
            "there is no global default\n"
            "4:2 second-type: the type is already weekly; this line has no effect\n"
            "  1:1 the type comes from here\n");
}

TEST(DefaultsCheck, TellsWhyALineIsOfNoEffect) {
  const auto id = [](const std::string& line, PartKind kind) {
    const std::string section = "defaults, x {\n" + line;
    return id_of(finding_for_unused_default(part_of(section, kind), "weekly"));
  };
  EXPECT_EQ(id("mon: a", PartKind::unusable_line), "colon");
  EXPECT_EQ(id("mon a", PartKind::unusable_line), "no-key");
  EXPECT_EQ(id("mon [x] = a", PartKind::entry), "default-key");
  EXPECT_EQ(id("MON = a", PartKind::entry), "letter-case");
  EXPECT_EQ(id("dom5 = a", PartKind::entry), "default-key");
  EXPECT_EQ(id("xyz9 = a", PartKind::entry), "default-range");
  EXPECT_EQ(id("xyz = a", PartKind::entry), "default-key");
}

TEST(DefaultsCheck, FindsDefaultsThatAreGivenTwice) {
  EXPECT_EQ(
      findings_in("*daily\nglobal default = a\nglobal default = b\n"
                  "defaults, of the day {\nday = a\n day = c\n}\n"),
      "2:1 repeated-key: a later line sets the global default again; this line has no effect\n"
      "  3:1 the later line is here\n"
      "5:1 repeated-default: a later line gives the day another default; this line has no effect\n"
      "  6:2 the later line is here\n");
}

TEST(SectionCheck, SaysOnceWhyASectionIsDropped) {
  EXPECT_EQ(
      findings_in("*daily\n{\nitme = a\nstart: 1:00\nEnd = 2:00\n}\n{\nitem =\n}\n"),
      "3:1 unknown-key: the item is dropped: unknown key 'itme' in an item; did you mean 'item'?\n"
      "4:1 colon: the item is dropped: a ':' does not give 'start' a value; write '='\n"
      "5:1 letter-case: the item is dropped: 'End' has no effect; write 'end'\n"
      "7:1 missing: the item is dropped: it has no 'end'\n"
      "7:1 missing: the item is dropped: it has no 'start'\n"
      "8:1 missing: the item is dropped: its 'item' has no value\n");
}

TEST(SectionCheck, KeepsTheLastValueOfAKeyWithItsPlace) {
  WrittenSchedule written{.content =
                              "*daily\n{\n item = a\n item = b\nstart = 1:00\nend = 2:00\n}\n"};
  FileFindings found{.file = "f"};
  read_and_check_lines(written, {.media = false}, found);
  EXPECT_EQ(text_of(found),
            "3:2 repeated-key: a later line sets 'item' again; this line has no effect\n  4:2 the "
            "later line is here\n");
  const WrittenSection* item = written.items.at(3600);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->text_of(ScheduleKey::item), "b");
  EXPECT_EQ(item->place_of(ScheduleKey::item).line, 4);
  EXPECT_EQ(item->place_of(ScheduleKey::item).column, 9);
  EXPECT_EQ(item->place_of(ScheduleKey::label).line, 2);
  EXPECT_EQ(item->end, 7200U);
  EXPECT_EQ(written.schedule.schedule.at(3600).item, "b");
}

TEST(SectionCheck, FindsSectionsThatStartTogether) {
  const std::string block = "schedule block {\nblock = b\nstart = 1:00\nend = 2:00\n}\n";
  EXPECT_EQ(findings_in("*daily\n" + block + block),
            "2:1 same-start: another block starts at the same time; this one is dropped\n"
            "  7:1 the other one is here\n");
}

TEST(ValueCheck, LooksAtEachValueByItsKey) {
  EXPECT_EQ(
      findings_in("*daily\n{\nitem = a & b\nstart = 1:00\nend = 25:00\nlabel = a &amp; b\n"
                  "block = c & \x01\nitem duration = 5s\n}\n"),
      "5:7 out-of-range: '25:00' is out of range: clocks run from 00:00 to 24:00; write two items, "
      "from '01:00' to '24:00' and from '00:00' to '01:00'\n"
      "6:11 markup: '&amp;' is one character in the XML document only; all other documents "
      "show it as written\n"
      "7:13 control-character: a control character makes the XML document ill-formed\n"
      "8:17 bad-number: invalid number of seconds '5s'\n");
  EXPECT_EQ(
      findings_in("*daily\nschedule block {\nblock = b\nstart = 1:00\nend = 2:00\n"
                  "announce = item\n}\n"),
      "6:12 unknown-announce: unknown value 'item': the block is announced as one item only if "
      "no programmes lie inside; did you mean 'items'?\n");
}

TEST(ValueCheck, TakesNumbersForClocksOnlyWhereAllCouldBe) {
  const auto schedule = [](const std::string& start, const std::string& end) {
    return findings_in("*daily\n{\nitem = a\nstart = " + start + "\nend = " + end + "\n}\n");
  };
  const std::string finding =
      "4:9 bare-number: '9.30' is read as seconds from the beginning of the unit; write '09:30'\n";
  EXPECT_EQ(schedule("9.30", "10:00"), finding);
  EXPECT_EQ(schedule("0.30", "10:00"),
            "4:9 bare-number: '0.30' is read as seconds from the beginning of the unit; write "
            "'00:30'\n");
  EXPECT_EQ(schedule("18:00", "180"), "");
  EXPECT_EQ(schedule("18:00", "18"),
            "5:7 bare-number: '18' is read as 18 seconds from the beginning of the unit; write "
            "'18:00'\n");
  EXPECT_EQ(schedule("0", "3605.20"), "");
  EXPECT_EQ(schedule("9.30", "3605.20"), "");
  EXPECT_EQ(schedule("1800", "3600"), "");
}

TEST(PathCheck, FindsACommentThatIsPartOfThePath) {
  FileFindings found{.file = "f"};
  check_path("/no such file # news", {3, 8}, true, found);
  check_path("/#1", {4, 8}, true, found);
  EXPECT_EQ(text_of(found),
            "3:22 comment-behind-value: a comment after a path becomes part of the path; put the "
            "comment on a line of its own\n");
  const auto complaint = complaint_about_path("a # b # c");
  ASSERT_TRUE(complaint);
  EXPECT_EQ(complaint->offset, 2U);
  EXPECT_EQ(complaint->instead, "a");
}

TEST(PathCheck, TakesAQuoteAloneForAPath) {
  EXPECT_FALSE(complaint_about_path("\""));
}

TEST(MissingPartCheck, PutsAStartWithTheClockOfItsEndOnTheDayBefore) {
  WrittenSchedule written{.content = "*weekly\n{\nitem = a\nstart = 18:00\nend = Tue 18:00\n}\n"};
  FileFindings found{.file = "f"};
  read_and_check_lines(written, {.media = false}, found);
  check_missing_parts(written, 0, found);
  EXPECT_EQ(text_of(found),
            "4:9 incomplete-time: '18:00' has no weekday and is on Sunday, but the end names its "
            "day; write 'Mon 18:00'\n");
}

TEST(MadeFormats, AreThoseOfTheList) {
  MadeFormats formats;
  EXPECT_FALSE(formats.has_listing());
  ASSERT_TRUE(read_made_formats("html,gracenote", formats));
  EXPECT_TRUE(formats.html && formats.gracenote && formats.has_listing());
  EXPECT_FALSE(formats.xml || formats.json || formats.xmltv || formats.rovi);
  EXPECT_FALSE(read_made_formats("", formats));
  EXPECT_FALSE(read_made_formats("html,", formats));
}

TEST(LineCheck, FindsBracesOutOfPlace) {
  EXPECT_EQ(
      findings_in("*daily\n}\n{ item = a\nend = 5\n}\nfoo {\n}\n"),
      "2:1 stray-brace: this '}' closes nothing\n"
      "3:2 text-behind-brace: text after the '{' keeps this line from beginning a section; put "
      "the text on a line of its own\n"
      "6:1 unknown-section: unknown section 'foo'; it is skipped\n");
  EXPECT_EQ(findings_in("*daily\nfoo {\n} # x\nfoo {\n}x\n"),
            "2:1 unknown-section: unknown section 'foo'; it is skipped\n"
            "4:1 unknown-section: unknown section 'foo'; it is skipped\n"
            "5:2 text-behind-brace: 'x' after a '}' is not read; write '} # x'\n");
}

TEST(LineCheck, ShowsWhereTextBehindABraceBegins) {
  EXPECT_EQ(
      findings_in("*daily\n schedule block { block = b\nend = 5\n}\n"),
      "2:18 text-behind-brace: text after the '{' keeps this line from beginning a section; put "
      "the text on a line of its own\n");
  EXPECT_EQ(findings_in("*daily\n schedule block {\u00a0\nend = 5\n}\n"),
            "2:18 text-behind-brace: '\\u00a0' behind the '{' cannot be seen; remove it\n");
}

TEST(LineCheck, FindsASectionThatRunsIntoTheNext) {
  EXPECT_EQ(findings_in("*daily\n{\nitem = a\n {\nnothing\n}\n{\n"),
            "2:1 unclosed-section: no '}' closes this section before the next begins\n"
            "  4:2 the next section begins here\n"
            "7:1 unclosed-section: this section is never closed by a '}'\n");
}

TEST(LineCheck, KnowsASectionThatBeginsInTheRestOfAnOverlongLine) {
  EXPECT_EQ(findings_in("#" + std::string(1022, 'x') + "{\nitem = a\n"),
            "1:1 unclosed-section: this section is never closed by a '}'\n");
}

TEST(Story, KeepsWhereEachItemComesFrom) {
  Schedule schedule;
  Story story("f", schedule);
  ScheduleFile file(
      "*daily\nglobal default = z\n{\nitem = a\nstart = 0:00\nend = 2:00\n}\n"
      "{\nitem = b\nstart = 1:00\nend = 24:00\n}\n{\nitem = c\nstart = 1:00\nend = 0:30\n}\n"
      "{\nlabel = without an item\nstart = 1:00\nend = 2:00\n}\n");
  ScheduleBuilder builder(schedule);
  for (SchedulePart part; file.next(part);) {
    story.add_part(part, builder.add_part(part));
  }
  builder.finish();
  schedule.observer = &story;
  remove_reversed_items(schedule);
  fix_schedule_file(schedule);
  EXPECT_EQ(story.origin_at(0).where, "f:3");
  EXPECT_EQ(story.origin_at(0).events, std::vector<std::string>{});
  EXPECT_EQ(story.lost_at(3600),
            (std::vector<std::string>{"line 8: another item starts at the same time, at line 13",
                                      "line 13: ends before it starts and is dropped"}));
  EXPECT_EQ(story.lost_at(3599), std::vector<std::string>{});
}

}  // namespace
