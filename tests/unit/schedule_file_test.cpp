#include "platform/syntax/schedule_file.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

const char* name_of(PartKind kind) {
  switch (kind) {
    case PartKind::comment:
      return "comment";
    case PartKind::type:
      return "type";
    case PartKind::name_value:
      return "name_value";
    case PartKind::section_begin:
      return "begin";
    case PartKind::entry:
      return "entry";
    case PartKind::unusable_line:
      return "unusable";
    case PartKind::nested_begin:
      return "nested_begin";
    case PartKind::nested_end:
      return "nested_end";
    case PartKind::section_end:
      return "end";
    case PartKind::cut_off:
      return "cut_off";
  }
  return "?";
}

const char* name_of(SectionKind kind) {
  constexpr const char* names[] = {"top", "item", "block", "defaults", "unknown"};
  return names[static_cast<size_t>(kind)];
}

/// A line for each part: "LINE:COLUMN SECTION KIND", then what the part has of name, value with its
/// column, clarifier and key.
std::string parts_of(ScheduleFile& file) {
  std::ostringstream text;
  SchedulePart part;
  while (file.next(part)) {
    text << part.line << ':' << part.column << ' ' << name_of(part.section) << ' '
         << name_of(part.kind);
    if (!part.name.empty()) {
      text << " <" << part.name << '>';
    }
    if (!part.value.empty()) {
      text << " = " << part.value_column << ":<" << part.value << '>';
    }
    if (!part.clarifier.empty()) {
      text << " [" << part.clarifier << ']';
    }
    if (part.key != nullptr) {
      text << " key " << part.key->name;
    }
    text << (part.is_rest ? " rest\n" : "\n");
  }
  return text.str();
}

std::string parts_of(const std::string& content) {
  ScheduleFile file(content);
  return parts_of(file);
}

TEST(ScheduleFile, TellsTheLinesOfTheTopLevelApart) {
  EXPECT_EQ(parts_of("\n  # x = {\n*weekly \n = global default = /a=b\nc : d\n{ x\n}\r\n"),
            "1:1 top comment\n"
            "2:3 top comment\n"
            "3:1 top type <weekly >\n"
            "4:2 top name_value <global default> = 21:</a=b>\n"
            "5:1 top name_value <c> = 5:<d>\n"
            "6:1 top name_value\n"
            "7:1 top name_value\n");
}

TEST(ScheduleFile, SplitsTheLinesOfAnItemAndKnowsItsKeys) {
  EXPECT_EQ(
      parts_of("{\n\titem =  /a = b \n# item = c\nITEM = d\nstart=\nend: 5\nfoo {\nannounce = "
               "items\n } # x\nitem = top\n"),
      "1:1 item begin\n"
      "2:2 item entry <item> = 10:</a = b> key item\n"
      "3:1 item comment\n"
      "4:1 item entry <ITEM> = 8:<d>\n"
      "5:1 item unusable\n"
      "6:1 item unusable\n"
      "7:1 item unusable\n"
      "8:1 item entry <announce> = 12:<items>\n"
      "9:2 item end\n"
      "10:1 top name_value <item> = 8:<top>\n");
}

TEST(ScheduleFile, HasOtherKeysInABlock) {
  EXPECT_EQ(parts_of("schedule block   {\nannounce = items\nlabel = x\n}\nschedule block\t{\n}\n"),
            "1:1 block begin <schedule block>\n"
            "2:1 block entry <announce> = 12:<items> key announce\n"
            "3:1 block entry <label> = 9:<x>\n"
            "4:1 block end\n"
            "5:1 unknown begin <schedule block\t>\n"
            "6:1 unknown end\n");
}

TEST(ScheduleFile, CountsTheLevelsOfADefaultsSection) {
  EXPECT_EQ(
      parts_of("defaults, x {\nmon [a b] = c\nday: d\n# deeper {\nmon = {\n}\nsun = e\n}\n}\n"),
      "1:1 defaults begin <defaults, x>\n"
      "2:1 defaults entry <mon> = 13:<c> [a b]\n"
      "3:1 defaults unusable\n"
      "4:1 defaults nested_begin\n"
      "5:1 defaults entry <mon> = 7:<{>\n"
      "6:1 defaults nested_end\n"
      "7:1 defaults entry <sun> = 7:<e>\n"
      "8:1 defaults end\n"
      "9:1 top name_value\n");
}

TEST(ScheduleFile, SplitsNothingInAnUnknownSection) {
  EXPECT_EQ(parts_of("x {\nitem = a\ny {\n}\n\n}\n*daily"),
            "1:1 unknown begin <x>\n"
            "2:1 unknown unusable\n"
            "3:1 unknown nested_begin\n"
            "4:1 unknown nested_end\n"
            "5:1 unknown comment\n"
            "6:1 unknown end\n"
            "7:1 top type <daily>\n");
}

TEST(ScheduleFile, SaysThatTheFileEndsWithinASection) {
  EXPECT_EQ(parts_of("*daily\n{\nitem = a"),
            "1:1 top type <daily>\n"
            "2:1 item begin\n"
            "3:1 item entry <item> = 8:<a> key item\n"
            "3:0 item cut_off\n");
  EXPECT_EQ(parts_of(""), "");
}

TEST(ScheduleFile, KnowsWhereTheSectionOfALineBegins) {
  ScheduleFile file("\n{\nlabel = a\n}\n\n");
  SchedulePart part;
  std::string lines;
  while (file.next(part)) {
    lines += std::to_string(part.section_line) + ' ';
  }
  // An end belongs to its section, as a beginning does.
  EXPECT_EQ(lines, "0 2 2 2 0 ");
}

TEST(ScheduleFile, ReadsTheRestOfAnOverlongLineAsFurtherLines) {
  const std::string first(1023, 'x');
  EXPECT_EQ(parts_of(first + "{\nitem = a\n" + first + "\n}"),
            "1:1 top name_value\n"
            "1:1 item begin rest\n"
            "2:1 item entry <item> = 8:<a> key item\n"
            "3:1 item unusable\n"
            "3:1 item comment rest\n"
            "4:1 item end\n");
}

TEST(ScheduleFile, EndsALineAtANulByte) {
  EXPECT_EQ(parts_of(std::string("{\nitem = a\0b\n}\0x\n", 17)),
            "1:1 item begin\n"
            "2:1 item entry <item> = 8:<a> key item\n"
            "3:1 item end\n");
}

TEST(SectionKeys, OnesThatAreNeededAreThoseWithoutWhichASectionIsDropped) {
  const auto needed = [](SectionKind kind) {
    std::string names;
    for (const SectionKey& key : section_keys(kind)) {
      names += key.is_needed ? std::string(key.name) + ' ' : "";
    }
    return names;
  };
  EXPECT_EQ(needed(SectionKind::item), "item start end ");
  EXPECT_EQ(needed(SectionKind::block), "block start end ");
  EXPECT_EQ(needed(SectionKind::defaults), "");
  EXPECT_EQ(find_section_key(SectionKind::item, "event id")->key, ScheduleKey::event_id);
  EXPECT_EQ(find_section_key(SectionKind::item, "item duration")->value_kind, ValueKind::number);
  EXPECT_EQ(find_section_key(SectionKind::item, "announce"), nullptr);
  EXPECT_EQ(find_section_key(SectionKind::block, "label"), nullptr);
  EXPECT_EQ(find_section_key(SectionKind::item, ""), nullptr);
  EXPECT_EQ(find_section_key(SectionKind::unknown, "item"), nullptr);
}

}  // namespace
