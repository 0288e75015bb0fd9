#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "properties/random.hpp"
#include "schedule/schedule.hpp"

/// A piece of a schedule file: its lines, and what reading them does to a schedule that is read so
/// far.
struct TextPart {
  std::string text;
  std::function<void(Schedule&)> effect;
};

/// A schedule file with sections of all kinds, lines that mean nothing, and times in all forms.
std::vector<TextPart> random_schedule_text(Random& random);

std::string text_of(const std::vector<TextPart>& parts);

/// The schedule that the file with these parts holds, as it stands behind the file's last line.
std::unique_ptr<Schedule> schedule_of(const std::vector<TextPart>& parts);
