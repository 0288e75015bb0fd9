#include "check/schedule_check.hpp"

#include <fcntl.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include "check/line_check.hpp"
#include "check/media_check.hpp"
#include "check/pass_check.hpp"
#include "check/source_text.hpp"
#include "check/written_schedule.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"

FileReports check_schedule_file(const std::string& name, const std::string& path,
                                const CheckOptions& options, bool& is_read) {
  FileReports found{name, {}};
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str());
  std::optional<std::string> content;
  if (file.is_open()) {
    content = read_content(file.get());
  }
  is_read = content.has_value();
  if (!content) {
    found.reports.push_back({Finding::unreadable,
                             {},
                             errno == EINVAL
                                 ? std::string("is no regular file")
                                 : std::string("cannot be read: ") + std::strerror(errno),
                             {}});
    return found;
  }
  // What the passes say on standard error is found here too, with its lines.
  const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
  WrittenSchedule written(*std::move(content));
  check_bytes(written.source, found.reports);
  if (!is_hopeless(written.source)) {
    read_and_check_lines(written, options.media, found.reports);
    check_passes(written, options.report_time, found.reports);
    if (options.media) {
      check_media(written, path, found.reports);
    }
  }
  sort_reports(found);
  return found;
}
