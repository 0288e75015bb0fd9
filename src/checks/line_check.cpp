#include "checks/checks.hpp"

#include <string>

#include "checks/line_checks.hpp"
#include "checks/line_fix.hpp"
#include "checks/odd_characters.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/activity.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

bool starts_with_mark(const LineChecks& checks) {
  return checks.written.content.starts_with(byte_order_mark);
}

void break_section(LineChecks& checks, const SchedulePart& next) {
  checks.is_section_broken = true;
  checks.found.add(FindingKind::unclosed_section, checks.section_place,
                   "no '}' closes this section before the next begins",
                   {{place_of(next), "the next section begins here"}});
}

void check_line_of_section(LineChecks& checks, const SchedulePart& part, const PartEffect& effect) {
  if (checks.is_section_broken || part.section == SectionKind::unknown) {
    return;
  }
  if (opens_section(part.text)) {
    break_section(checks, part);
  } else if (part.section == SectionKind::defaults) {
    check_defaults_line(checks, part, effect);
  } else {
    check_section_line(checks, part);
  }
}

/// Whether a text has only characters that cannot be seen.
bool is_invisible(std::string_view text) {
  return strip_blanks(with_plain_characters(text)).empty();
}

void report_invisible_characters(LineChecks& checks, const SchedulePart& part, size_t brace) {
  const std::string_view behind = part.text.substr(brace + 1);
  checks.found.add(FindingKind::text_behind_brace,
                   {part.line, part.column + static_cast<int64_t>(brace) + 1},
                   quoted(behind) + " behind the " + quoted(part.text.substr(brace, 1)) +
                       " cannot be seen; remove it",
                   {}, {line_with(part, behind, "")});
}

/// Text behind the brace keeps the line from beginning a section.
void lose_section(LineChecks& checks, const SchedulePart& part, size_t brace) {
  const std::string_view behind = part.text.substr(brace + 1);
  checks.is_in_lost_section = true;
  if (is_invisible(behind)) {
    report_invisible_characters(checks, part, brace);
    return;
  }
  checks.found.add(
      FindingKind::text_behind_brace, {part.line, part.column + static_cast<int64_t>(brace) + 1},
      "text after the '{' keeps this line from beginning a section; put the "
      "text on a line of its own",
      {}, {line_with(part, part.text.substr(brace), "{\n  " + std::string(strip_blanks(behind)))});
}

void check_unused_name(LineChecks& checks, const SchedulePart& part) {
  if (part.line == 1 && starts_with_mark(checks)) {
    return;
  }
  const std::string_view text = part.text;
  if (checks.is_in_lost_section) {
    checks.is_in_lost_section = !closes_section(text);
    return;
  }
  if (closes_section(text)) {
    checks.found.add(FindingKind::stray_brace, place_of(part), "this '}' closes nothing");
    return;
  }
  const size_t brace = text.find('{');
  if (brace != std::string_view::npos &&
      section_kind_of_name(strip_blanks(text.substr(0, brace))) != SectionKind::unknown) {
    lose_section(checks, part, brace);
    return;
  }
  if (is_line_of_table(text) && section_kind_of_name(text) == SectionKind::unknown) {
    if (part.line != checks.table_line + 1) {
      checks.found.findings.push_back(finding_for_table(place_of(part)));
    }
    checks.table_line = part.line;
    return;
  }
  checks.found.findings.push_back(finding_for_unused_name(part));
  if (section_kind_of_name(text) != SectionKind::unknown || meant_section(text) == "") {
    checks.name_without_brace = text;
  }
  if (checks.found.findings.back().kind == FindingKind::unknown_type) {
    checks.is_type_misspelt = true;
  }
}

void enter_section(LineChecks& checks, const SchedulePart& part, const PartEffect& effect) {
  checks.section_place = place_of(part);
  checks.is_section_broken = false;
  if (part.section == SectionKind::defaults) {
    begin_defaults(checks, part, effect);
  } else if (part.section == SectionKind::unknown && !part.is_rest) {
    checks.found.findings.push_back(finding_for_unknown_section(part));
  } else if (part.section != SectionKind::unknown) {
    begin_section(checks, part);
  }
  if (part.text == "{" && !checks.name_without_brace.empty()) {
    take_brace_of_line_before(checks.found.findings.back(), checks.name_without_brace, part);
    checks.is_section_broken =
        section_kind_of_name(checks.name_without_brace) != SectionKind::unknown;
  }
}

void check_closing(LineChecks& checks, const SchedulePart& part) {
  const std::string_view behind = strip_blanks(part.text.substr(1));
  if (behind.empty() || behind.front() == '#' || checks.is_section_broken) {
    return;
  }
  if (is_invisible(behind)) {
    report_invisible_characters(checks, part, 0);
    return;
  }
  checks.is_in_lost_section = opens_section(behind);
  const std::string meant =
      checks.is_in_lost_section ? "}\n" + std::string(behind) : "} # " + std::string(behind);
  checks.found.add(
      FindingKind::text_behind_brace, {part.line, part.column + 1},
      quoted(behind) + " after a '}' is not read; " +
          (checks.is_in_lost_section ? "put it on a line of its own" : "write " + quoted(meant)),
      {}, {line_with(part, part.text, meant)});
}

void leave_section(LineChecks& checks, const SchedulePart& part, const PartEffect& effect) {
  if (part.kind == PartKind::section_end) {
    if (!part.is_rest) {
      check_closing(checks, part);
    }
  } else if (!checks.is_section_broken) {
    checks.is_section_broken = true;
    checks.found.add(FindingKind::unclosed_section, checks.section_place,
                     "this section is never closed by a '}'");
  }
  if (part.section == SectionKind::item || part.section == SectionKind::block) {
    end_section(checks, part, effect);
  }
}

void check_part(LineChecks& checks, const SchedulePart& part, const PartEffect& effect) {
  if (part.kind != PartKind::section_begin && part.kind != PartKind::comment) {
    checks.name_without_brace = {};
  }
  const bool is_type = part.kind == PartKind::type && effect.is_used;
  checks.has_content = checks.has_content || (part.kind != PartKind::comment && !is_type);
  switch (part.kind) {
    case PartKind::comment:
      break;
    case PartKind::type:
      if (effect.is_used) {
        take_type(checks, place_of(part));
      } else {
        check_unused_type(checks, part);
      }
      break;
    case PartKind::name_value:
      if (effect.is_used) {
        take_global_default(checks, part);
      } else {
        check_unused_name(checks, part);
      }
      break;
    case PartKind::section_begin:
      enter_section(checks, part, effect);
      break;
    case PartKind::entry:
    case PartKind::unusable_line:
    case PartKind::nested_begin:
      check_line_of_section(checks, part, effect);
      break;
    case PartKind::nested_end:
      check_closing(checks, part);
      break;
    case PartKind::section_end:
    case PartKind::cut_off:
      leave_section(checks, part, effect);
      break;
  }
}

void finish(LineChecks& checks) {
  if (!checks.has_content) {
    checks.found.add(FindingKind::no_programmes, {},
                     "nothing airs: the file holds no programmes and no default items");
  }
  if (!starts_with_mark(checks)) {
    finish_type_check(checks);
  }
  finish_time_check(checks);
  finish_defaults_check(checks);
}

/// Whether the part is to be checked. The rest of an overlong line is read as further lines; one
/// finding covers them all. The beginnings and ends of sections among them must still be known.
bool is_checked(const SchedulePart& part) {
  return !part.is_rest || part.kind == PartKind::section_begin ||
         part.kind == PartKind::section_end;
}

}  // namespace

void read_and_check_lines(WrittenSchedule& written, const CheckOptions& options,
                          FileFindings& found) {
  const Activity activity("reading", found.file.c_str());
  ScheduleFile parts(written.content);
  ScheduleBuilder builder(written.schedule);
  LineChecks checks{
      .written = written, .found = found, .with_media = options.media, .formats = options.formats};
  for (SchedulePart part; parts.next(part);) {
    const PartEffect effect = builder.add_part(part);
    if (is_checked(part)) {
      check_part(checks, part, effect);
    }
  }
  builder.finish();
  finish(checks);
}
