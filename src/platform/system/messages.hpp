#pragma once

#include <cstdarg>
#include <string>
#include <string_view>

// Messages on standard error, and failures below the driver that end the run. The driver decides
// how failures are reported.

/// The text that vprintf would print.
[[gnu::format(printf, 1, 0)]] std::string format_text(const char* format, std::va_list arguments);

/// Prints a message of the reader or a pass about a schedule, as std::fprintf does.
[[gnu::format(printf, 1, 2)]] void print_diagnostic(const char* format, ...);

enum class Warning {
  pass,       ///< a pass cannot do all that the schedule asks for
  cut_short,  ///< an error ends the reading of a file
};

/// The same for a message about more than a repair.
[[gnu::format(printf, 2, 3)]] void print_warning(Warning kind, const char* format, ...);

/// Receives each warning instead of standard error, even if messages are not printed.
using WarningReporter = void (*)(Warning kind, std::string_view text);
void set_warning_reporter(WarningReporter reporter);

/// Keeps a copy of these messages while it lives. A schedule that is used again can then print them
/// again. With Printing::off it keeps nothing, and nothing is printed while it lives.
class DiagnosticsRecord {
 public:
  enum class Printing { on, off };
  explicit DiagnosticsRecord(Printing printing = Printing::on);
  DiagnosticsRecord(const DiagnosticsRecord&) = delete;
  DiagnosticsRecord& operator=(const DiagnosticsRecord&) = delete;
  ~DiagnosticsRecord();

  const std::string& text() const { return text_; }

 private:
  std::string text_;
  std::string* record_around_;
  bool was_printing_;
};

/// Prints the message of a failure. It does not have to return. It must not allocate memory if it
/// is to report that memory ran out.
using FailureReporter = void (*)(const char* message);

/// Sets the function that reports failures, and the exit status of a run that ends by one. From
/// then on, a lack of memory is such a failure too.
void set_failure_reporter(FailureReporter reporter, int status = 1);
int failure_status();

/// Ends the run with that status (1 by default) and a message. The arguments are as for printf. By
/// default the message goes to standard error after "Error: ".
[[noreturn, gnu::format(printf, 1, 2)]] void fail_run(const char* format, ...);

/// Call this when a system call failed and the document would be incomplete without its result. It
/// fails the run if descriptors or memory ran out (errno). The format gets the name and the
/// system's error text. A defect of a file is the same in every run, but a shortage of the machine
/// may be gone in the next run.
[[gnu::format(printf, 1, 0)]] void fail_run_for_shortage(const char* format, const char* name);
