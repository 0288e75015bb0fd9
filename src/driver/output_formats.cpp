#include "driver/output_formats.hpp"

#include <array>

#include "writers/formats.hpp"

namespace {

// Indexed by OutputFormat.
constexpr std::array<OutputFormatInfo, 5> formats = {{
    {OutputFormat::xml, "xml", "text/xml", print_to_xml},
    {OutputFormat::html, "html", "text/html", print_to_html},
    {OutputFormat::json, "json", "application/json", print_to_json},
    {OutputFormat::rovi, "rovi", "text/csv", print_to_rovi},
    {OutputFormat::gracenote, "gracenote", "text/csv", print_to_gracenote},
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
