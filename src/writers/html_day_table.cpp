#include "writers/html_day_table.hpp"

#include <array>
#include <cstdint>
#include <optional>

#include "platform/syntax/text.hpp"
#include "platform/system/invariant.hpp"
#include "platform/system/output.hpp"
#include "writers/append.hpp"
#include "writers/html_page.hpp"
#include "writers/time_text.hpp"

namespace {

/// A day as the anchors count it: months and days from 0, in a calendar of 31-day months. The
/// arrows follow that calendar too, even where a month has fewer days.
struct AnchorDay {
  int64_t year = 0;
  int month = 0;
  int day = 0;
  int weekday = 0;
};

constexpr int last_day = 30;
constexpr int last_month = 11;
constexpr int last_weekday = 6;

using Neighbour = std::optional<AnchorDay>;

std::string no_anchor(const AnchorDay&) {
  return {};
}

std::string weekly_anchor(const AnchorDay& day) {
  return "weekly" + std::to_string(day.weekday);
}

std::string monthly_anchor(const AnchorDay& day) {
  return "monthly" + std::to_string(day.day);
}

std::string yearly_anchor(const AnchorDay& day) {
  return "yearly" + std::to_string(day.month) + "d" + std::to_string(day.day);
}

std::string endless_anchor(const AnchorDay& day) {
  return "endless" + std::to_string(day.year) + "m" + std::to_string(day.month) + "d" +
         std::to_string(day.day);
}

Neighbour no_neighbour(const AnchorDay&) {
  return std::nullopt;
}

Neighbour day_before_in_week(const AnchorDay& day) {
  if (day.weekday > 0) {
    return AnchorDay{.weekday = day.weekday - 1};
  }
  return std::nullopt;
}

Neighbour day_after_in_week(const AnchorDay& day) {
  if (day.weekday < last_weekday) {
    return AnchorDay{.weekday = day.weekday + 1};
  }
  return std::nullopt;
}

Neighbour day_before_in_month(const AnchorDay& day) {
  return day.day > 0 ? Neighbour({day.year, day.month, day.day - 1, 0}) : std::nullopt;
}

Neighbour day_after_in_month(const AnchorDay& day) {
  return day.day < last_day ? Neighbour({day.year, day.month, day.day + 1, 0}) : std::nullopt;
}

Neighbour day_before_in_year(const AnchorDay& day) {
  if (day.day == 0 && day.month > 0) {
    return AnchorDay{day.year, day.month - 1, last_day, 0};
  }
  return day_before_in_month(day);
}

Neighbour day_after_in_year(const AnchorDay& day) {
  if (day.day == last_day && day.month < last_month) {
    return AnchorDay{day.year, day.month + 1, 0, 0};
  }
  return day_after_in_month(day);
}

constexpr std::string_view weekly_script[] = {
    "    /* WEEKLY schedule handling */",
    "    d = d.getDay();",
    "    if (window.location.hash == '' || window.location.hash == undefined) "
    "window.location.hash = 'weekly'+d.toString();",
};
constexpr std::string_view monthly_script[] = {
    "    /* MONTHLY schedule handling */",
    "    d = d.getDate() - 1;",
    "    if (window.location.hash == '' || window.location.hash == undefined) "
    "window.location.hash = 'monthly'+d.toString();",
};
constexpr std::string_view yearly_script[] = {
    "    /* YEARLY schedule handling */",
    "    var m = d.getMonth();",
    "    d = d.getDate() - 1;",
    "    if (window.location.hash == '' || window.location.hash == undefined) "
    "window.location.hash = 'yearly'+m.toString()+'d'+d.toString();",
};

/// How the days of a type of schedule are linked with each other.
struct AnchorRules {
  DayName day_name;
  std::string (*anchor)(const AnchorDay& day);
  Neighbour (*previous)(const AnchorDay& day);
  Neighbour (*next)(const AnchorDay& day);
  std::span<const std::string_view> script;
};

const std::array<AnchorRules, 5> anchor_rules = {{
    {DayName::only_day, no_anchor, no_neighbour, no_neighbour, {}},
    {DayName::weekday, weekly_anchor, day_before_in_week, day_after_in_week, weekly_script},
    {DayName::day_of_month, monthly_anchor, day_before_in_month, day_after_in_month,
     monthly_script},
    {DayName::day_of_year, yearly_anchor, day_before_in_year, day_after_in_year, yearly_script},
    {DayName::date, endless_anchor, day_before_in_year, day_after_in_year, {}},
}};

const AnchorRules* find_rules(std::string_view type_text) {
  const ScheduleType* type = find_schedule_type(type_text);
  for (const AnchorRules& rules : anchor_rules) {
    if (type != nullptr && rules.day_name == type->day_name) {
      return &rules;
    }
  }
  return nullptr;
}

/// The target of an arrow: the neighbouring day, or the day itself at either end.
std::string link_of(const AnchorRules& rules, const Neighbour& neighbour,
                    const std::string& current) {
  return neighbour ? rules.anchor(*neighbour) : current;
}

void append_day_name(std::string& out, const std::tm& tm) {
  append(out, day_name_opening, "<span class=\"neversplit scheddayname\">",
         upper_case(day_name(tm.tm_wday)), "</span><br><span class=\"neversplit scheddaydate\">",
         month_name(tm.tm_mon), " ");
  append_signed(out, tm.tm_mday);
  append(out, ordinal_suffix(tm.tm_mday), " ");
  append_signed(out, int64_t{tm.tm_year} + 1900);
  append(out, "</span></td>\n");
}

}  // namespace

void html_open_day_table(Schedule& schedule, time_t day_start) {
  std::string out;
  append_day_table_opening(out, schedule, day_start);
  write_output(out);
}

void append_day_table_opening(std::string& out, const Schedule& schedule, time_t day_start) {
  const AnchorRules* rules = find_rules(schedule.type);
  std::tm tm{};
  const bool is_known = localtime_r(&day_start, &tm) != nullptr;
  INVARIANT_OF("void html_open_day_table(Schedule&, time_t)", is_known, "tm != NULL");
  if (rules == nullptr) {
    return;
  }
  const AnchorDay day{int64_t{tm.tm_year} + 1900, tm.tm_mon, tm.tm_mday - 1, tm.tm_wday};
  const std::string current = rules->anchor(day);
  if (!current.empty()) {
    append(out, "    <a name=\"", current, "\"></a>\n");
  }
  append(out, day_bar_opening, left_arrow_opening, link_of(*rules, rules->previous(day), current),
         left_arrow_picture);
  append_day_name(out, tm);
  append(out, right_arrow_opening, link_of(*rules, rules->next(day), current), right_arrow_picture,
         day_bar_closing);
}

std::span<const std::string_view> jump_script(std::string_view type) {
  const AnchorRules* rules = find_rules(type);
  return rules != nullptr ? rules->script : std::span<const std::string_view>();
}
