#include "driver/report_error.hpp"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <string_view>

#include "platform/system/activity.hpp"
#include "platform/system/file.hpp"
#include "platform/system/output.hpp"
#include "platform/system/run_limits.hpp"
#include "schedule/run_options.hpp"
#include "schedule/watchdog.hpp"

namespace {

constexpr rlim_t most_processor_time = 600;  // seconds
constexpr rlim_t most_processor_time_of_cgi = 60;

rlim_t processor_time_limit = 0;

/// A text in a fixed buffer. A signal handler cannot allocate memory.
class FixedText {
 public:
  void append(std::string_view text) {
    text = text.substr(0, text_.size() - length_);
    std::ranges::copy(text, text_.data() + length_);
    length_ += text.size();
  }

  void append_number(rlim_t number) {
    std::array<char, 24> digits{};
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    append(std::string_view(digits.data(), static_cast<size_t>(end - digits.data())));
  }

  std::string_view view() const { return {text_.data(), length_}; }

 private:
  std::array<char, 8 * 1024> text_{};
  size_t length_ = 0;
};

FixedText message;

void append_activity() {
  const Activity* activity = current_activity();
  if (activity == nullptr) {
    return;
  }
  for (const char* text : {" while ", activity->doing(), " ", activity->file()}) {
    message.append(text);
  }
}

/// Names the limit that was reached, then ends the process by that limit's signal.
void end_at_limit(int signal) {
  // A reader that does not read the message must not keep the run alive.
  constexpr unsigned time_to_write = 5;  // seconds
  std::signal(SIGALRM, SIG_DFL);
  alarm(time_to_write);
  const bool is_response = run_options.cgi && !is_output_begun();
  const bool is_watchdog = signal == SIGALRM;
  message.append(is_response ? error_response_header : "Error: ");
  message.append(is_watchdog ? "Time limit of " : "Processor time limit of ");
  message.append_number(is_watchdog ? watchdog_seconds : processor_time_limit);
  message.append(" s reached");
  append_activity();
  message.append("\n");
  write_fully(is_response ? STDOUT_FILENO : STDERR_FILENO, message.view());
  const int last = is_watchdog ? SIGALRM : SIGXCPU;
  std::signal(last, SIG_DFL);
  std::raise(last);
}

}  // namespace

void report_limits() {
  set_signal_action(SIGALRM, end_at_limit);
  set_signal_action(SIGXCPU, end_at_limit);
  set_signal_action(SIGPROF, end_at_limit);
  processor_time_limit =
      limit_processor_time(run_options.cgi ? most_processor_time_of_cgi : most_processor_time);
}
