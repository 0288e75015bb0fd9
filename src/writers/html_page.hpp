#pragma once

#include <span>
#include <string_view>

// The fixed texts of the programme-guide page.

struct StyleRule {
  std::string_view selector;
  std::span<const std::string_view> declarations;
};

/// The page's style sheet (CSS), in order.
std::span<const StyleRule> page_style();

/// From the document type to the title, and from the title to the style rules.
extern const std::string_view page_opening;
extern const std::string_view page_style_opening;

/// Before and after the script's lines for the schedule's type.
extern const std::string_view page_script_opening;
extern const std::string_view page_script_closing;

extern const std::string_view page_closing;

/// The time cell and the text cell of a row, each without its content.
extern const std::string_view time_cell_opening;
extern const std::string_view text_cell_opening;
extern const std::string_view cell_closing;

/// The bar of arrows above a day: the parts before, between and after the two links and the day's
/// name.
extern const std::string_view day_bar_opening;
extern const std::string_view left_arrow_opening;
extern const std::string_view left_arrow_picture;
extern const std::string_view day_name_opening;
extern const std::string_view right_arrow_opening;
extern const std::string_view right_arrow_picture;
extern const std::string_view day_bar_closing;
