#include "platform/media/helper_process.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <utility>

#include "platform/system/messages.hpp"
#include "platform/system/run_limits.hpp"

namespace {

/// Sent before the text of a question, together with the descriptor.
struct QuestionHead {
  uint64_t size;
  int64_t processor_time;  ///< microseconds
};

/// Sent before the text of an answer.
struct AnswerHead {
  uint64_t size;
  int64_t error;  ///< errno of a shortage that prevents any answer, else 0
};

/// The values that the helper's out-of-memory handler needs. It takes no arguments.
struct Grant {
  int socket;
  size_t address_space;  ///< bytes
};
Grant helpers_grant = {-1, 0};

/// Bytes of address space that this process uses, or 0 when the system does not say.
size_t claimed_memory() {
  const FileDescriptor file = open_optional_file(AT_FDCWD, "/proc/self/statm");
  std::array<char, 64> text{};
  if (!file.is_open() || read_fully(file.get(), text.data(), text.size() - 1) == 0) {
    return 0;
  }
  return std::strtoul(text.data(), nullptr, 10) * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

bool limit_address_space([[maybe_unused]] size_t bytes) {
#ifdef NV8X_ADDRESS_SANITIZER  // it claims terabytes of addresses without using them
  return true;
#else
  rlimit limit{};
  if (getrlimit(RLIMIT_AS, &limit) != 0) {
    return false;
  }
  limit.rlim_cur = std::min<rlim_t>(bytes, limit.rlim_max);
  return setrlimit(RLIMIT_AS, &limit) == 0;
#endif
}

/// After that time a timer signal ends the process.
bool limit_time(int64_t microseconds) {
  constexpr int64_t a_second = 1000000;
  itimerval timer{};
  timer.it_value.tv_sec = microseconds / a_second;
  timer.it_value.tv_usec = microseconds % a_second;
  return setitimer(ITIMER_PROF, &timer, nullptr) == 0;
}

/// A message of some bytes, with room for one descriptor.
struct Message {
  Message(void* bytes, size_t size) : part{bytes, size} {
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    header.msg_control = control.data();
    header.msg_controllen = control.size();
  }
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

  iovec part;
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
  msghdr header{};
};

/// Whether the whole head was sent, with the descriptor. Sets errno if not.
bool send_head(int socket, QuestionHead head, int fd) {
  Message message(&head, sizeof(head));
  cmsghdr* rights = CMSG_FIRSTHDR(&message.header);
  rights->cmsg_level = SOL_SOCKET;
  rights->cmsg_type = SCM_RIGHTS;
  rights->cmsg_len = CMSG_LEN(sizeof(int));
  std::memcpy(CMSG_DATA(rights), &fd, sizeof(fd));
  ssize_t count = 0;
  do {
    count = sendmsg(socket, &message.header, MSG_NOSIGNAL);
  } while (count < 0 && errno == EINTR);
  return count == static_cast<ssize_t>(sizeof(head));
}

/// The descriptor that comes with a head. On failure it is not open and errno is set; errno is 0
/// when the other side is gone.
FileDescriptor receive_head(int socket, QuestionHead& head) {
  Message message(&head, sizeof(head));
  ssize_t count = 0;
  do {
    count = recvmsg(socket, &message.header, MSG_CMSG_CLOEXEC | MSG_WAITALL);
  } while (count < 0 && errno == EINTR);
  const bool is_whole = count == static_cast<ssize_t>(sizeof(head));
  const cmsghdr* rights = is_whole ? CMSG_FIRSTHDR(&message.header) : nullptr;
  int fd = -1;
  if (rights != nullptr && rights->cmsg_type == SCM_RIGHTS) {
    std::memcpy(&fd, CMSG_DATA(rights), sizeof(fd));
  } else if (count >= 0) {
    errno = is_whole ? EMFILE : 0;  // the system drops a descriptor for which there is no room
  }
  return FileDescriptor(fd);
}

bool send_fully(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      return false;
    }
    bytes.remove_prefix(static_cast<size_t>(count));
  }
  return true;
}

bool send_answer_head(int socket, AnswerHead head) {
  return send_fully(socket, {reinterpret_cast<const char*>(&head), sizeof(head)});
}

bool send_answer(int socket, const std::string& answer) {
  return answer.size() <= HelperProcess::longest_answer &&
         send_answer_head(socket, {answer.size(), 0}) && send_fully(socket, answer);
}

/// Ends the helper because of a shortage, which is not the fault of the file. The run reports it.
[[noreturn]] void end_for_want(int socket, int error) {
  send_answer_head(socket, {0, error});
  _exit(EXIT_FAILURE);
}

/// Whether the system would still give the helper the rest of its grant.
bool can_have_the_grant() {
  const size_t claimed = claimed_memory();
  if (claimed == 0 || claimed >= helpers_grant.address_space) {
    return true;
  }
  constexpr int no_file = -1;
  const size_t left = helpers_grant.address_space - claimed;
  void* rest = mmap(nullptr, left, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, no_file, 0);
  if (rest == MAP_FAILED) {
    return false;
  }
  munmap(rest, left);
  return true;
}

/// The helper's out-of-memory handler. If the file needs more than the grant, only this question
/// ends. If the machine cannot provide the grant, the run ends.
void judge_lack_of_memory() {
  std::set_new_handler(nullptr);  // allocations now fail
  if (!can_have_the_grant()) {
    end_for_want(helpers_grant.socket, ENOMEM);
  }
}

/// Ends the run because of a shortage.
[[noreturn]] void fail_for_want(const std::string& question, int error) {
  if (error == ENOMEM) {
    fail_run("Out of memory");
  }
  fail_run("Unable to read the tags of %s: %s", question.c_str(), std::strerror(error));
}

std::optional<std::string> receive_answer(int socket, const std::string& question) {
  AnswerHead head{};
  if (read_fully(socket, reinterpret_cast<char*>(&head), sizeof(head)) != sizeof(head)) {
    return std::nullopt;
  }
  if (head.error != 0) {
    fail_for_want(question, static_cast<int>(head.error));
  }
  if (head.size > HelperProcess::longest_answer) {
    return std::nullopt;
  }
  std::string answer(head.size, '\0');
  if (read_fully(socket, answer.data(), head.size) != head.size) {
    return std::nullopt;
  }
  return answer;
}

/// Answers one question. False when there are no more.
bool answer_next(int socket, HelperProcess::Work work) {
  QuestionHead head{};
  const FileDescriptor file = receive_head(socket, head);
  if (!file.is_open() && errno != 0) {
    end_for_want(socket, errno);
  }
  std::string question(file.is_open() ? head.size : 0, '\0');
  if (!file.is_open() || read_fully(socket, question.data(), question.size()) != question.size()) {
    return false;
  }
  if (!limit_time(head.processor_time)) {
    end_for_want(socket, errno);
  }
  const std::string answer = work(file.get(), question);
  if (!limit_time(0)) {
    end_for_want(socket, errno);
  }
  return send_answer(socket, answer);
}

/// The whole life of the helper. It prints nothing when it ends, because that would help nobody.
[[noreturn]] void answer_and_end(int socket, int nowhere, HelperProcess::Work work,
                                 size_t address_space) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const rlimit no_core{};
  setrlimit(RLIMIT_CORE, &no_core);
  // A reader of the run's output must not have to wait for the end of this process.
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    dup2(nowhere, fd);
  }
  for (const int signal : {SIGPROF, SIGALRM, SIGXCPU}) {
    set_signal_action(signal, SIG_DFL);
  }
  if (!limit_address_space(address_space)) {
    end_for_want(socket, errno);
  }
  helpers_grant = {socket, address_space};
  std::set_new_handler(judge_lack_of_memory);  // the run's own handler would print a message
  try {
    while (answer_next(socket, work)) {
    }
  } catch (const std::exception&) {
    // This is most likely a lack of memory, which may happen here. The run takes the end of the
    // helper as the answer.
  }
  _exit(EXIT_SUCCESS);
}

[[noreturn]] void fail_start() {
  fail_run("Unable to start a process to read tags in: %s", std::strerror(errno));
}

}  // namespace

bool HelperProcess::start() {
  const size_t claimed = claimed_memory();
  if (claimed == 0) {
    return false;
  }
  const FileDescriptor nowhere(::open("/dev/null", O_RDWR | O_CLOEXEC));
  std::array<int, 2> ends{};
  if (!nowhere.is_open() || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    fail_start();
  }
  FileDescriptor own(ends[0]);
  FileDescriptor others(ends[1]);
  process_ = fork();
  if (process_ < 0) {
    fail_start();
  }
  if (process_ == 0) {
    own.reset();
    answer_and_end(others.get(), nowhere.get(), work_, claimed + memory_);
  }
  socket_.reset(own.release());
  return true;
}

/// Whether the process had already ended because its time was up.
bool HelperProcess::end() {
  int status = 0;
  socket_.reset();
  if (process_ > 0) {
    kill(process_, SIGKILL);
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
  }
  process_ = -1;
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGPROF;
}

std::optional<std::string> HelperProcess::ask(int fd, const std::string& question,
                                              std::chrono::microseconds processor_time) {
  const bool is_fresh = process_ < 0;
  std::optional<std::string> answer = ask_once(fd, question, processor_time);
  if (!answer && !end() && !is_fresh) {
    // Earlier questions may have used up the process, so ask a new one.
    answer = ask_once(fd, question, processor_time);
    if (!answer) {
      end();
    }
  }
  return answer;
}

std::optional<std::string> HelperProcess::ask_once(int fd, const std::string& question,
                                                   std::chrono::microseconds processor_time) {
  const QuestionHead head{question.size(), processor_time.count()};
  if (process_ < 0 && !start()) {
    return std::nullopt;
  }
  const bool is_sent = send_head(socket_.get(), head, fd) && send_fully(socket_.get(), question);
  if (!is_sent) {
    const bool is_gone = errno == EPIPE || errno == ECONNRESET;
    if (!is_gone) {
      fail_run("Unable to hand %s to the process that reads tags: %s", question.c_str(),
               std::strerror(errno));
    }
    // It may already have sent the reason, and sends nothing more.
    shutdown(socket_.get(), SHUT_WR);
  }
  return receive_answer(socket_.get(), question);
}
