#include "import/spreadsheet.hpp"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/system/file.hpp"
#include "platform/system/run_limits.hpp"
#include "station/held_signals.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view zip_begin = "PK\x03\x04";
constexpr std::string_view ole_begin = "\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1";

constexpr const char* converter = "ssconvert";

/// Raw values: no locale decides how a date or a number is written.
std::vector<std::string> conversion(const std::string& program, const std::string& input,
                                    const std::string& result) {
  return {program,
          "-T",
          "Gnumeric_stf:stf_assistant",
          "-O",
          "active-sheet=true format=raw separator=, charset=UTF-8 eol=unix quoting-mode=auto",
          input,
          result};
}

std::string path_of_program(const std::string& program) {
  const char* const path = std::getenv("PATH");
  for (std::string_view rest = path != nullptr ? path : "/usr/bin:/bin"; !rest.empty();) {
    const std::string folder(rest.substr(0, rest.find(':')));
    rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    std::string candidate = folder;
    candidate.append("/").append(program);
    if (!folder.empty() && access(candidate.c_str(), X_OK) == 0) {
      return candidate;
    }
  }
  return {};
}

/// A new folder that is removed at the end.
class WorkFolder {
 public:
  WorkFolder() {
    const char* const place = std::getenv("TMPDIR");
    std::string name = std::string(place != nullptr ? place : "/tmp") + "/nv8x-import-XXXXXX";
    if (mkdtemp(name.data()) != nullptr) {
      path_ = std::move(name);
    }
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder() {
    std::error_code ignored;
    if (!path_.empty()) {
      fs::remove_all(path_, ignored);
    }
  }

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

bool write_new_file(const std::string& path, std::string_view bytes) {
  const FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  return file.is_open() && write_fully(file.get(), bytes);
}

void limit_child(int resource, rlim_t most) {
  const rlimit limit{most, most};
  setrlimit(static_cast<__rlimit_resource_t>(resource), &limit);
}

constexpr int most_seconds = 60;

/// In the new process: a quiet run with limits and its own environment.
[[noreturn]] void become(const char* program, char* const* arguments, char* const* environment) {
  constexpr rlim_t most_file_bytes = 1UL << 30U;
  constexpr rlim_t most_memory = 4UL << 30U;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  setpgid(0, 0);
  limit_child(RLIMIT_CPU, most_seconds);
  limit_child(RLIMIT_FSIZE, most_file_bytes);
  limit_child(RLIMIT_AS, most_memory);
  limit_child(RLIMIT_CORE, 0);
  const int nothing = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    dup2(nothing, stream);
  }
  execve(program, arguments, environment);
  constexpr int not_started = 127;
  _exit(not_started);
}

/// Waits for the process; kills it and its own processes when that takes too long.
bool wait_for(pid_t process) {
  constexpr long pause = 5'000'000;  // nanoseconds
  const time_t begin = time(nullptr);
  int status = 0;
  while (true) {
    const pid_t ended = waitpid(process, &status, WNOHANG);
    if (ended == process) {
      return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    if ((ended < 0 && errno != EINTR) || time(nullptr) - begin > most_seconds ||
        SignalsHeldBack::is_end_waiting()) {
      kill(-process, SIGKILL);
      kill(process, SIGKILL);
      waitpid(process, &status, 0);
      return false;
    }
    const timespec a_moment{0, pause};
    nanosleep(&a_moment, nullptr);
  }
}

std::vector<char*> pointers_to(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) {
    pointers.push_back(text.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

bool run_converter(std::vector<std::string> words, const std::string& folder,
                   const SignalsHeldBack& held_back) {
  const char* const path = std::getenv("PATH");
  std::vector<std::string> environment = {
      "HOME=" + folder, "TMPDIR=" + folder, "LC_ALL=C.UTF-8", "GSETTINGS_BACKEND=memory",
      std::string("PATH=") + (path != nullptr ? path : "/usr/bin:/bin")};
  const std::vector<char*> arguments = pointers_to(words);
  const std::vector<char*> variables = pointers_to(environment);
  const pid_t process = fork();
  if (process == 0) {
    held_back.let_go();
    become(words.front().c_str(), arguments.data(), variables.data());
  }
  return process > 0 && wait_for(process);
}

}  // namespace

bool is_spreadsheet(std::string_view bytes) {
  return bytes.starts_with(zip_begin) || bytes.starts_with(ole_begin);
}

std::optional<std::string> csv_of_spreadsheet(std::string_view bytes, std::string& error) {
  const std::string program = path_of_program(converter);
  if (program.empty()) {
    error =
        "is a spreadsheet; install the Debian package gnumeric, whose ssconvert reads it, or "
        "save it as CSV";
    return std::nullopt;
  }
  const SignalsHeldBack held_back;  // until the folder is removed
  const WorkFolder folder;
  const std::string source = folder.path() + "/table";  // the converter goes by the content
  const std::string result = folder.path() + "/table.csv";
  if (folder.path().empty() || !write_new_file(source, bytes)) {
    error = std::string("cannot be copied for the conversion: ") + std::strerror(errno);
    return std::nullopt;
  }
  const bool is_converted =
      run_converter(conversion(program, source, result), folder.path(), held_back);
  const FileDescriptor file = open_regular_file(AT_FDCWD, result.c_str(), Links::refused);
  auto text = is_converted && file.is_open() ? read_content(file.get()) : std::nullopt;
  if (!text) {
    error = std::string("cannot be converted by ") + converter;
  }
  return text;
}
