#include "import/sidecars.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"
#include "station/replaced_file.hpp"

namespace {

constexpr std::string_view mark_begin = "# Made from ";
constexpr std::string_view mark_end = " by nv8x_schedule_import.";
constexpr std::string_view suffix = ".metadata";

bool is_folder(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The path of the item's sidecar: below the folder, with as much of the item's own path as has a
/// folder there.
std::string sidecar_path(const std::string& folder, std::string_view item) {
  const std::string_view name = file_name_of(item);
  const bool leads_out = item.starts_with("../") || item.find("/../") != std::string_view::npos;
  for (std::string_view tail = leads_out ? name : item; tail.size() > name.size();) {
    const std::string_view path = tail.substr(0, tail.size() - name.size());
    const std::string below = folder + "/" + std::string(path);
    if (path != "/" && is_folder(below)) {
      return below + std::string(name) + std::string(suffix);
    }
    tail.remove_prefix(tail.find('/') + 1);
  }
  return folder + "/" + std::string(name) + std::string(suffix);
}

std::optional<std::string> content_of(const std::string& path) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str(), Links::refused);
  return file.is_open() ? read_content(file.get()) : std::nullopt;
}

/// Whether something is there that this program did not write.
bool is_foreign(const std::string& path) {
  if (look_at(path) == FileState::missing) {
    return false;
  }
  const std::optional<std::string> content = content_of(path);
  const std::string_view line =
      content ? std::string_view(*content).substr(0, content->find('\n')) : std::string_view();
  return !(line.starts_with(mark_begin) && line.ends_with(mark_end));
}

bool can_be_sidecar_name(std::string_view name) {
  return name.find_first_of("=\n") == std::string_view::npos && !name.starts_with('#') &&
         !name.starts_with('[');
}

/// A sidecar's lines hold no line breaks.
std::string sidecar_value(std::string_view cell) {
  std::string value(strip_blanks(cell));
  std::ranges::replace(value, '\n', ' ');
  return value;
}

struct SidecarEntry {
  std::string value;
  Place place;
};

/// What a sidecar is to hold, by the place of its column.
struct PlannedSidecar {
  std::map<int64_t, SidecarEntry> entries;
  Place place;
};

class SidecarPlan {
 public:
  SidecarPlan(const Table& table, const TableHeader& header, std::vector<Finding>& findings)
      : table_(table), header_(header), findings_(findings) {
    for (const OtherColumn& other : header.others) {
      if (can_be_sidecar_name(other.name)) {
        columns_.push_back(other);
      } else {
        findings_.push_back({FindingKind::unused_column,
                             {header.row, other.column},
                             quoted(other.name) + " cannot be a name in a sidecar",
                             {}});
      }
    }
  }

  void add_row(int64_t row, const std::string& folder) {
    const std::string_view kind = table_.cell(row, header_.column_of(TableColumn::kind));
    const std::string_view item =
        strip_blanks(table_.cell(row, header_.column_of(TableColumn::item)));
    const bool names_media = find_row_kind(kind) != RowKind::type && !file_name_of(item).empty();
    for (const OtherColumn& other : columns_) {
      const std::string value = sidecar_value(table_.cell(row, other.column));
      if (names_media && !value.empty()) {
        add_value(sidecar_path(folder, item), other, value, {row, other.column});
      }
    }
  }

  std::vector<MadeSidecar> sidecars(const std::string& source) {
    std::vector<MadeSidecar> made;
    for (const auto& [path, planned] : planned_) {
      if (is_foreign(path)) {
        findings_.push_back({FindingKind::kept_sidecar,
                             planned.place,
                             quoted(path) + " was not made by this program and stays as it is",
                             {}});
        continue;
      }
      std::string text = std::string(mark_begin) + escaped(source) + std::string(mark_end) + "\n";
      for (const OtherColumn& other : columns_) {
        if (const auto entry = planned.entries.find(other.column); entry != planned.entries.end()) {
          text += other.name + " = " + entry->second.value + "\n";
        }
      }
      made.push_back({path, std::move(text)});
    }
    return made;
  }

 private:
  void add_value(const std::string& path, const OtherColumn& column, const std::string& value,
                 const Place& place) {
    PlannedSidecar& planned = planned_.try_emplace(path, PlannedSidecar{{}, place}).first->second;
    const auto [entry, is_new] =
        planned.entries.try_emplace(column.column, SidecarEntry{value, place});
    if (!is_new && entry->second.value != value) {
      findings_.push_back({FindingKind::other_value,
                           place,
                           "another " + quoted(column.name) + " for the same file",
                           {{entry->second.place, "the first one is here"}}});
    }
  }

  const Table& table_;
  const TableHeader& header_;
  std::vector<Finding>& findings_;
  std::vector<OtherColumn> columns_;
  std::map<std::string, PlannedSidecar> planned_;  ///< by path
};

}  // namespace

std::vector<MadeSidecar> sidecars_of_table(const Table& table, const TableHeader& header,
                                           const std::string& folder, const std::string& source,
                                           std::vector<Finding>& findings) {
  SidecarPlan plan(table, header, findings);
  for (int64_t row = header.row + 1; row <= static_cast<int64_t>(table.rows.size()); ++row) {
    if (!strip_blanks(table.cell(row, 1)).starts_with('#')) {
      plan.add_row(row, folder);
    }
  }
  return plan.sidecars(source);
}

bool write_sidecar(const MadeSidecar& sidecar) {
  if (content_of(sidecar.path) == sidecar.text) {
    return true;
  }
  ReplacedFile file(sidecar.path, NewMode::as_before);
  return file.is_open() && file.write(sidecar.text) && file.publish();
}
