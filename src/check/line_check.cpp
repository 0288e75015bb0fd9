#include "check/line_check.hpp"

#include <optional>
#include <string>

#include "check/defaults_check.hpp"
#include "check/name_check.hpp"
#include "check/section_check.hpp"
#include "check/type_check.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/activity.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

/// Checks where sections begin and end, and passes their lines to the check for their kind.
class LineCheck {
 public:
  LineCheck(WrittenSchedule& written, bool with_media, std::vector<Finding>& findings)
      : starts_with_mark_(written.source.content().starts_with("\xef\xbb\xbf")),
        findings_(findings),
        types_(written.schedule, findings),
        defaults_(written, with_media, types_, findings),
        sections_(written, with_media, types_, findings) {}

  void check_part(const SchedulePart& part, const PartEffect& effect);

  /// Called at the end of the file.
  void finish();

 private:
  void check_section_line(const SchedulePart& part, const PartEffect& effect);
  void check_unused_name(const SchedulePart& part);
  void begin_section(const SchedulePart& part, const PartEffect& effect);
  void check_closing(const SchedulePart& part);
  void break_section(const SchedulePart& next);
  void end_section(const SchedulePart& part, const PartEffect& effect);

  bool starts_with_mark_;
  std::vector<Finding>& findings_;
  TypeCheck types_;
  DefaultsCheck defaults_;
  SectionCheck sections_;
  Place section_place_;
  bool is_broken_ = false;  ///< the section runs into the next one and gets no more findings
  bool is_in_lost_section_ =
      false;  ///< in a section that does not count, because text follows its '{'
};

void LineCheck::check_part(const SchedulePart& part, const PartEffect& effect) {
  switch (part.kind) {
    case PartKind::comment:
      break;
    case PartKind::type:
      if (effect.is_used) {
        types_.take_type(place_of(part));
      } else {
        types_.check_unused_type(part);
      }
      break;
    case PartKind::name_value:
      if (effect.is_used) {
        defaults_.take_global_default(part);
      } else {
        check_unused_name(part);
      }
      break;
    case PartKind::section_begin:
      begin_section(part, effect);
      break;
    case PartKind::entry:
    case PartKind::unusable_line:
    case PartKind::nested_begin:
      check_section_line(part, effect);
      break;
    case PartKind::nested_end:
      check_closing(part);
      break;
    case PartKind::section_end:
    case PartKind::cut_off:
      end_section(part, effect);
      break;
  }
}

void LineCheck::check_section_line(const SchedulePart& part, const PartEffect& effect) {
  if (is_broken_ || part.section == SectionKind::unknown) {
    return;
  }
  if (opens_section(part.text)) {
    break_section(part);
  } else if (part.section == SectionKind::defaults) {
    defaults_.check_line(part, effect);
  } else {
    sections_.check_line(part);
  }
}

void LineCheck::check_unused_name(const SchedulePart& part) {
  if (part.line == 1 && starts_with_mark_) {
    return;
  }
  const std::string_view text = part.text;
  if (is_in_lost_section_) {
    is_in_lost_section_ = !closes_section(text);
    return;
  }
  if (closes_section(text)) {
    findings_.push_back({FindingKind::stray_brace, place_of(part), "this '}' closes nothing"});
    return;
  }
  const size_t brace = text.find('{');
  if (brace != std::string_view::npos &&
      section_kind_of_name(strip_blanks(text.substr(0, brace))) != SectionKind::unknown) {
    findings_.push_back({FindingKind::text_behind_brace,
                         {part.line, part.column + static_cast<int64_t>(brace) + 1},
                         "text after the '{' keeps this line from beginning a section; put the "
                         "text on a line of its own"});
    is_in_lost_section_ = true;
    return;
  }
  findings_.push_back(finding_for_unused_name(part));
  if (findings_.back().kind == FindingKind::unknown_type) {
    types_.set_misspelt();
  }
}

void LineCheck::begin_section(const SchedulePart& part, const PartEffect& effect) {
  section_place_ = place_of(part);
  is_broken_ = false;
  if (part.section == SectionKind::defaults) {
    defaults_.begin_section(part, effect);
  } else if (part.section == SectionKind::unknown && !part.is_rest) {
    findings_.push_back({FindingKind::unknown_section, section_place_,
                         "unknown section " + quoted(part.name) + "; it is skipped" +
                             did_you_mean_section(part.name)});
  } else if (part.section != SectionKind::unknown) {
    sections_.begin_section(part);
  }
}

void LineCheck::break_section(const SchedulePart& next) {
  is_broken_ = true;
  findings_.push_back({FindingKind::unclosed_section,
                       section_place_,
                       "no '}' closes this section before the next begins",
                       {{place_of(next), "the next section begins here"}}});
}

void LineCheck::check_closing(const SchedulePart& part) {
  const std::string_view behind = strip_blanks(part.text.substr(1));
  if (!behind.empty() && behind.front() != '#' && !is_broken_) {
    findings_.push_back({FindingKind::text_behind_brace,
                         {part.line, part.column + 1},
                         quoted(behind) + " after a '}' is not read; put it on a line of its own"});
    is_in_lost_section_ = opens_section(behind);
  }
}

void LineCheck::end_section(const SchedulePart& part, const PartEffect& effect) {
  if (part.kind == PartKind::section_end) {
    if (!part.is_rest) {
      check_closing(part);
    }
  } else if (!is_broken_) {
    is_broken_ = true;
    findings_.push_back(
        {FindingKind::unclosed_section, section_place_, "this section is never closed by a '}'"});
  }
  if (part.section == SectionKind::item || part.section == SectionKind::block) {
    sections_.end_section(part, effect, is_broken_);
  }
}

void LineCheck::finish() {
  if (!starts_with_mark_) {
    types_.finish();
  }
  sections_.finish();
  defaults_.finish();
}

/// Whether the part is to be checked. The rest of an overlong line is read as further lines; one
/// finding covers them all. The beginnings and ends of sections among them must still be known.
bool is_checked(const SchedulePart& part) {
  return !part.is_rest || part.kind == PartKind::section_begin ||
         part.kind == PartKind::section_end;
}

}  // namespace

void read_and_check_lines(WrittenSchedule& written, const std::string& file, bool with_media,
                          std::vector<Finding>& findings) {
  const Activity activity("reading", file.c_str());
  ScheduleFile parts(written.source.content());
  ScheduleBuilder builder(written.schedule);
  LineCheck check(written, with_media, findings);
  for (SchedulePart part; parts.next(part);) {
    const PartEffect effect = builder.add_part(part);
    if (is_checked(part)) {
      check.check_part(part, effect);
    }
  }
  builder.finish();
  check.finish();
}
