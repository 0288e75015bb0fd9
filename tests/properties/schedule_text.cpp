#include "properties/schedule_text.hpp"

#include <utility>

#include "properties/written_time.hpp"

namespace {

using Lines = std::vector<std::string>;

constexpr std::array<const char*, 6> types = {"daily",  "weekly",  "monthly",
                                              "yearly", "endless", "interval"};
constexpr std::array<const char*, 5> junk_type_lines = {"*interval", "* weekly", "*Daily",
                                                        "*monthly ", "*fortnightly"};
constexpr std::array<const char*, 9> junk_lines = {"",
                                                   "   ",
                                                   "# item = comment.mp4",
                                                   "channel = 7",
                                                   "=",
                                                   "no sense at all",
                                                   "item = outside.mp4",
                                                   "{ = }",
                                                   "start = Mon 12:00"};

std::string type_line_section(std::string_view type) {
  if (type == "daily") {
    return "defaults, of the day";
  }
  if (type == "endless") {
    return "defaults, day of the years";
  }
  const std::string unit(type == "interval" ? type : type.substr(0, type.size() - 2));
  return "defaults, day of the " + unit;
}

/// The lines with blanks before them and around each first "=", and either line end.
std::string join(Random& random, const Lines& lines) {
  static constexpr std::array<const char*, 4> indents = {"", "  ", "\t", " \t "};
  static constexpr std::array<const char*, 4> equals = {"=", " = ", "= ", "\t=  "};
  std::string text;
  for (const std::string& line : lines) {
    const size_t equal = line.find(" = ");
    text += random.pick(indents);
    text += equal == std::string::npos
                ? line
                : line.substr(0, equal) + random.pick(equals) + line.substr(equal + 3);
    text += random.chance(20) ? "\r\n" : "\n";
  }
  return text;
}

/// The lines in any order, with meaningless ones among them.
Lines shuffled(Random& random, Lines lines) {
  if (random.chance(20)) {
    lines.emplace_back("color = green");
  }
  if (random.chance(20)) {
    lines.emplace_back("# remark");
  }
  if (random.chance(10)) {
    lines.emplace_back("label =");
  }
  for (size_t i = lines.size(); i > 1; --i) {
    std::swap(lines[i - 1], lines[random.below(i)]);
  }
  return lines;
}

void set_type(Schedule& schedule, std::string_view type) {
  if (schedule.type.empty()) {
    schedule.type = type;
  }
}

TextPart type_line(Random& random, const std::string& type) {
  if (type == "interval" || random.chance(5)) {
    return {join(random, {random.pick(junk_type_lines)}), [](Schedule&) {}};
  }
  return {join(random, {"*" + type}), [type](Schedule& schedule) { set_type(schedule, type); }};
}

TextPart junk(Random& random) {
  if (random.chance(5)) {  // the line is taken as two
    return {"#" + std::string(1500, 'x') + "\n", [](Schedule&) {}};
  }
  if (random.chance(10)) {
    return {join(random, {"aside {", "item = x.mp4", "deeper {", "start = 12:00", "}", "}"}),
            [](Schedule&) {}};
  }
  return {join(random, {random.pick(junk_lines)}), [](Schedule&) {}};
}

TextPart global_default(Random& random) {
  static constexpr std::array<const char*, 3> forms = {
      "global default = ", "=global default=", "global default: "};
  const std::string path = "loops/global" + std::to_string(random.below(3)) + ".mp4";
  return {random.pick(forms) + path + "\n",
          [path](Schedule& schedule) { schedule.global_default = path; }};
}

/// A key of a defaults section: the type whose keys have its form, and the slot it names there.
struct Key {
  std::string text;
  std::string type;
  int64_t slot;  ///< -1: out of the type's range
};

Key random_key(Random& random, const std::string& type) {
  static constexpr std::array<const char*, 7> days = {"sun",   "mon", "tuesday", "wed",
                                                      "thurs", "fri", "saturn"};
  const int64_t number = random.between(0, random.chance(10) ? 5581 : 32);
  const int64_t month = random.between(1, random.chance(10) ? 13 : 12);
  const int64_t day = random.between(1, random.chance(10) ? 32 : 31);
  const int64_t year = random.between(2019, 2035);
  const std::string date = "m" + std::to_string(month) + "d" + std::to_string(day);
  const int64_t in_year = month <= 12 && day <= 31 ? (month - 1) * 31 + day - 1 : -1;
  if (type == "daily") {
    return {random.chance(90) ? "day" : "days", type, 0};
  }
  if (type == "weekly") {
    const uint64_t weekday = random.below(7);
    return {days.at(weekday), type, static_cast<int64_t>(weekday)};
  }
  if (type == "monthly" || type == "interval") {
    return {(type == "monthly" ? "dom" : "doi") + std::to_string(number), type,
            number >= 1 && number <= 5580 ? number - 1 : -1};
  }
  if (type == "yearly") {
    return {date, type, in_year};
  }
  const bool is_known = year >= 2020 && year <= 2034 && in_year >= 0;
  return {"y" + std::to_string(year) + date, type, is_known ? (year - 2020) * 372 + in_year : -1};
}

TextPart defaults_section(Random& random, const std::string& type) {
  const std::string section = type_line_section(type);
  const bool sets_type = type != "endless";
  std::vector<std::pair<Key, std::string>> entries;
  Lines lines = {section + " {"};
  for (uint64_t i = random.below(12); i > 0; --i) {
    const Key key = random_key(random, random.chance(90) ? type : random.pick(types));
    const std::string path = "loops/" + key.text + std::to_string(random.below(2)) + ".mp4";
    const uint64_t form = random.below(20);
    std::string& line = lines.emplace_back(key.text);
    line += form == 0 ? " [late]" : form == 1 ? " []" : "";
    line += " = " + path;
    if (form != 0) {
      entries.emplace_back(key, path);
    }
  }
  if (random.chance(10)) {
    lines.insert(lines.end(), {"nested {", "= nothing", "}"});
  }
  lines.emplace_back("}");
  return {join(random, lines), [=](Schedule& schedule) {
            if (sets_type) {
              set_type(schedule, type);
            }
            for (const auto& [key, path] : entries) {
              if (key.type == schedule.type && key.slot >= 0 && key.text != "days") {
                schedule.defaults[static_cast<size_t>(key.slot)] = path;
              }
            }
          }};
}

TextPart block_section(Random& random, const std::string& type) {
  static constexpr std::array<const char*, 4> announces = {"block", "items", "maybe", ""};
  const WrittenTime start = random_written_time(random, type);
  const WrittenTime end = random_written_time(random, type);
  const std::string name = random.chance(90) ? "Block " + std::to_string(random.below(50)) : "";
  const std::string announce = random.pick(announces);
  Lines lines = shuffled(random, {"start = " + start.text, "end = " + end.text, "block = " + name,
                                  "announce = " + announce});
  lines.insert(lines.begin(), "schedule block {");
  lines.emplace_back("}");
  return {join(random, lines), [=](Schedule& schedule) {
            ScheduleBlock block;
            block.start = position_of(start, schedule.type);
            block.end = position_of(end, schedule.type);
            block.block = name;
            block.announce = announce;
            if (as_signed(block.start) >= 0 && as_signed(block.end) >= 0 && !name.empty()) {
              schedule.blocks[block.start] = block;
            }
          }};
}

/// An end that mostly lies behind the start: the same form with a later clock would be long-winded,
/// so it is written in schedule seconds.
WrittenTime random_end(Random& random, const WrittenTime& start, const std::string& type) {
  const int64_t from = as_signed(position_of(start, type));
  if (from < 0 || from > 90000000 || random.chance(25)) {
    return random_written_time(random, type);
  }
  static constexpr std::array<int64_t, 7> lengths = {0, 1, 30, 600, 3600, 20000, 100000};
  const int64_t end = from + random.pick(lengths);
  WrittenTime time;
  time.text = std::to_string(end);
  const int64_t days = std::max<int64_t>(0, end - 1) / 86400;
  const int64_t second = end - days * 86400;
  time.year = static_cast<int>(2020 + days / 372);
  time.month = static_cast<int>(days / 31 % 12 + 1);
  time.day = static_cast<int>(days % 31 + 1);
  time.weekday = static_cast<int>(days % 7);
  time.hour = static_cast<int>(second / 3600);
  time.minute = static_cast<int>(second / 60 % 60);
  time.second = static_cast<int>(second % 60);
  return time;
}

TextPart item_section(Random& random, const std::string& type, bool is_closed) {
  const WrittenTime start = random_written_time(random, type);
  const WrittenTime end = random_end(random, start, type);
  const bool has_end = random.chance(96);
  ScheduleItem item;
  item.item = random.chance(97) ? "clips/" + std::to_string(random.below(1000)) + " = x.mp4" : "";
  item.label = random.chance(50) ? "Label {" + std::to_string(random.below(9)) + "}" : "";
  item.event_id = random.chance(20) ? "E" + std::to_string(random.below(9)) : "";
  item.block = random.chance(20) ? "Block 1" : "";
  const uint64_t duration = random.below(4000);
  item.duration = duration < 2000 ? static_cast<double>(duration) + 0.25 : -1.0;
  Lines lines = {"item = " + item.item, "label = " + item.label, "event id = " + item.event_id,
                 "block = " + item.block, "start = " + start.text};
  if (has_end) {
    lines.push_back("end = " + end.text);
  }
  if (duration < 2000) {
    lines.push_back("item duration = " + std::to_string(duration) + ".25");
  }
  lines = shuffled(random, lines);
  lines.insert(lines.begin(), "{");
  if (is_closed) {
    lines.emplace_back(random.chance(90) ? "}" : "} # closed");
  }
  return {join(random, lines), [=](Schedule& schedule) {
            ScheduleItem read = item;
            read.start = position_of(start, schedule.type);
            read.end = has_end ? position_of(end, schedule.type) : no_time;
            if (!read.item.empty() && as_signed(read.start) >= 0 && as_signed(read.end) >= 0) {
              schedule.schedule[read.start] = read;
            }
          }};
}

TextPart random_part(Random& random, const std::string& type) {
  const uint64_t kind = random.below(100);
  if (kind < 70) {
    return item_section(random, type, true);
  }
  if (kind < 80) {
    return block_section(random, type);
  }
  if (kind < 90) {
    return junk(random);
  }
  if (kind < 95) {
    return defaults_section(random, random.chance(80) ? type : random.pick(types));
  }
  return kind < 98 ? global_default(random) : type_line(random, random.pick(types));
}

}  // namespace

std::vector<TextPart> random_schedule_text(Random& random) {
  const std::string type = random.pick(types);
  std::vector<TextPart> parts;
  if (random.chance(20)) {
    parts.push_back(junk(random));
  }
  if (random.chance(80)) {
    parts.push_back(type_line(random, type));
  }
  if (random.chance(70)) {
    parts.push_back(defaults_section(random, type));
  }
  for (uint64_t i = random.below(60); i > 0; --i) {
    parts.push_back(random_part(random, type));
  }
  if (random.chance(10)) {
    parts.push_back(item_section(random, type, false));
  }
  return parts;
}

std::string text_of(const std::vector<TextPart>& parts) {
  std::string text;
  for (const TextPart& part : parts) {
    text += part.text;
  }
  return text;
}

std::unique_ptr<Schedule> schedule_of(const std::vector<TextPart>& parts) {
  auto schedule = std::make_unique<Schedule>();
  for (const TextPart& part : parts) {
    part.effect(*schedule);
  }
  if (schedule->type.empty()) {
    schedule->type = "weekly";
  }
  for (std::string& item : schedule->defaults) {
    item = item.empty() ? schedule->global_default : item;
  }
  schedule->unit_length = find_schedule_type(schedule->type)->unit_length;
  return schedule;
}
