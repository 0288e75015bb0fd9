#pragma once

#include <ctime>
#include <string_view>

#include "schedule/run_options.hpp"
#include "schedule/schedule.hpp"

/// An output format: its name, its content type and the function that prints it.
struct OutputFormatInfo {
  OutputFormat format;
  std::string_view name;     ///< value of --format
  const char* content_type;  ///< MIME type of the CGI response
  void (*print)(Schedule& schedule, time_t window_start, time_t window_end);
};

/// Null when there is no format of that name.
const OutputFormatInfo* find_output_format(std::string_view name);

const OutputFormatInfo& output_format_info(OutputFormat format);
