#include "import/schedule_text.hpp"

#include <string_view>

#include "import/open_ends.hpp"
#include "import/written_position.hpp"
#include "platform/syntax/schedule_file.hpp"
#include "platform/syntax/text.hpp"

namespace {

constexpr std::string_view endless_section = "defaults, by date";

class ScheduleWriter {
 public:
  ScheduleWriter(const MadeSchedule& made, const TableRules& rules) : made_(made), rules_(rules) {}

  ScheduleText write(const std::string& source) {
    add_line({rules_.header.row, 1}, "# Made from " + escaped(source) +
                                         " by nv8x_schedule_import. Better change the table.");
    add_line({rules_.header.row, 1}, "");
    add_line({rules_.header.row, 1}, "*" + std::string(made_.type->text));
    write_global_default();
    write_defaults();
    for (const MadeSection& block : made_.blocks) {
      write_block(block);
    }
    for (const MadeSection& item : made_.items) {
      write_item(item);
    }
    return std::move(out_);
  }

 private:
  void add_line(const Place& place, std::string_view text) {
    out_.text += text;
    out_.text += '\n';
    out_.places.push_back(place);
  }

  void add_key(int64_t row, TableColumn column, std::string_view key, std::string_view value) {
    if (!value.empty()) {
      out_.text += "  ";
      out_.text += key;
      out_.text += " = ";
      add_line(rules_.place(row, column), value);
    }
  }

  void add_cell(int64_t row, TableColumn column, std::string_view key) {
    add_key(row, column, key, strip_blanks(rules_.cell(row, column)));
  }

  /// A comment where the row changes.
  void name_row(int64_t row) {
    if (row != named_row_) {
      add_line({row, 1}, "# row " + std::to_string(row));
      named_row_ = row;
    }
  }

  void write_global_default() {
    const int64_t row = made_.global_default_row;
    if (row > 0) {
      add_line({row, 1}, "");
      add_line(rules_.place(row, TableColumn::item),
               std::string(global_default_name) + " = " +
                   std::string(strip_blanks(rules_.cell(row, TableColumn::item))));
    }
  }

  void write_defaults() {
    if (made_.defaults.empty()) {
      return;
    }
    const std::string_view section = made_.type->defaults_section;
    const Place place{made_.defaults.front().row, 1};
    add_line(place, "");
    add_line(place, std::string(section.empty() ? endless_section : section) + " {");
    for (const MadeDefault& made : made_.defaults) {
      add_cell(made.row, TableColumn::item, day_key(made.day, *made_.type));
    }
    add_line(place, "}");
  }

  void begin_section(const MadeSection& section, std::string_view name) {
    add_line({section.row, 1}, "");
    name_row(section.row);
    add_line({section.row, 1}, std::string(name) + "{");
  }

  void end_section(const MadeSection& section) {
    add_key(section.row, TableColumn::start, "start", start_text(section.start, *made_.type));
    const TableColumn end = rules_.cell(section.row, TableColumn::end).empty() &&
                                    !rules_.cell(section.row, TableColumn::duration).empty()
                                ? TableColumn::duration
                                : TableColumn::end;
    add_key(section.row, end, "end", end_text(section.end, *made_.type));
  }

  void write_block(const MadeSection& block) {
    begin_section(block, std::string(block_section_name) + " ");
    add_cell(block.row, TableColumn::block, "block");
    end_section(block);
    add_cell(block.row, TableColumn::announce, "announce");
    add_line({block.row, 1}, "}");
  }

  void write_item(const MadeSection& item) {
    begin_section(item, "");
    add_cell(item.row, TableColumn::item, "item");
    add_cell(item.row, TableColumn::label, "label");
    add_cell(item.row, TableColumn::block, "block");
    add_cell(item.row, TableColumn::event_id, "event id");
    end_section(item);
    add_key(item.row, TableColumn::item_duration, "item duration",
            item_duration_text(rules_, item.row));
    add_line({item.row, 1}, "}");
  }

  const MadeSchedule& made_;
  const TableRules& rules_;
  ScheduleText out_;
  int64_t named_row_ = 0;
};

}  // namespace

ScheduleText schedule_text(const MadeSchedule& made, const TableRules& rules,
                           const std::string& source) {
  return ScheduleWriter(made, rules).write(source);
}
