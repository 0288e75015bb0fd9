#include "driver/output_formats.hpp"

#include <array>

#include "driver/report_error.hpp"
#include "writers/html_writer.hpp"
#include "writers/json_writer.hpp"
#include "writers/xml_writer.hpp"

namespace {

void report_missing_writer(Schedule&, time_t, time_t) {
  report_error("This output format is not available yet");
}

// By the value of OutputFormat.
constexpr std::array<OutputFormatInfo, 5> formats = {{
    {OutputFormat::xml, "xml", "text/xml", print_to_xml},
    {OutputFormat::html, "html", "text/html", print_to_html},
    {OutputFormat::json, "json", "application/json", print_to_json},
    {OutputFormat::rovi, "rovi", "text/csv", report_missing_writer},
    {OutputFormat::gracenote, "gracenote", "text/csv", report_missing_writer},
}};

}  // namespace

const OutputFormatInfo* find_output_format(std::string_view name) {
  for (const OutputFormatInfo& format : formats) {
    if (format.name == name) {
      return &format;
    }
  }
  return nullptr;
}

const OutputFormatInfo& output_format_info(OutputFormat format) {
  return formats.at(static_cast<size_t>(format));
}
