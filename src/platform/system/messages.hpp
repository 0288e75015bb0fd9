#pragma once

#include <cstdarg>
#include <string>
#include <string_view>

// What the run has to say on standard error, and failures that end it wherever they come up below
// the driver, which says how errors are told.

/// What vprintf would print.
[[gnu::format(printf, 1, 0)]] std::string format_text(const char* format, std::va_list arguments);

/// Prints what the reader and the passes have to say of a schedule, as std::fprintf does.
[[gnu::format(printf, 1, 2)]] void print_diagnostic(const char* format, ...);

enum class Warning {
  pass,       ///< a pass cannot do all that the schedule asks for
  cut_short,  ///< an error ends the reading of a file
};

/// The same for what is more than a repair.
[[gnu::format(printf, 2, 3)]] void print_warning(Warning kind, const char* format, ...);

/// Takes each warning in place of standard error, whoever leaves what is said unsaid.
using WarningReporter = void (*)(Warning kind, std::string_view text);
void set_warning_reporter(WarningReporter reporter);

/// Keeps a copy of those while it lives. What was said of a schedule that is used again can so be
/// said again, or be left unsaid. One that leaves them unsaid keeps nothing, and within it nothing
/// is printed.
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

/// Prints the message of a failure; need not return.
using FailureReporter = void (*)(const char* message);

/// Sets who tells of failures, and the status of a run that ends by one.
void set_failure_reporter(FailureReporter reporter, int status = 1);
int failure_status();

/// Ends the run with that status, 1 by default, and the message, a printf format and its arguments:
/// by default with "Error: " before it on standard error.
[[noreturn, gnu::format(printf, 1, 2)]] void fail_run(const char* format, ...);

/// To be called when a system call failed without which the document would come out poorer: fails
/// the run when that was for want of descriptors or memory (errno). The format is for the name and
/// the system's error text. What a file lacks, it lacks in every run; what the machine lacks may be
/// there in the next.
[[gnu::format(printf, 1, 0)]] void fail_run_for_shortage(const char* format, const char* name);
