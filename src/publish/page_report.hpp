#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "publish/web_folder.hpp"

/// What became of one page.
struct PageRow {
  std::string channel;  ///< "*": the station's guide
  std::string format;
  Outcome outcome;
  std::string reason;             ///< why it is refused or failed
  std::optional<uint64_t> items;  ///< announced items, or programmes of a guide
  double seconds = 0;             ///< that it took
};

/// Whether the old page stays because something is wrong.
bool is_bad(Outcome outcome);

/// One array of objects, one for each page.
std::string json_of(const std::vector<PageRow>& rows);

/// The line that shows on a terminal how far the run is. Messages are printed with print(), so that
/// they do not mix with it.
class Progress {
 public:
  /// Shows nothing if standard error is no terminal.
  explicit Progress(size_t channels);

  /// Prints the text on standard error.
  void print(const std::string& text);

  /// Counts a channel with its rows.
  void count(const std::vector<PageRow>& rows);

  /// Ends the line. Nothing more is printed afterwards.
  void finish() const;

 private:
  void show() const;
  void clear() const;

  bool is_shown_;
  size_t channels_;
  size_t done_ = 0;
  size_t pages_ = 0;
  size_t bad_ = 0;
};
