#include "driver/run_steps.hpp"

#include <string_view>

#include "driver/output_formats.hpp"
#include "platform/system/activity.hpp"
#include "platform/system/output.hpp"
#include "schedule/run_options.hpp"

void print_document(Schedule& schedule, const ReportWindow& window) {
  const OutputFormatInfo& format = output_format_info(run_options.format);
  const Activity activity("printing the document of");
  if (run_options.cgi) {
    hold_output_back();
    for (const std::string_view text : {"Content-Type: ", format.content_type, "\n\n"}) {
      print_output(text);
    }
  }
  format.print(schedule, window.start, window.end);
  finish_output();
}
