#include "fault_server.hpp"

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>

namespace {

constexpr size_t longest_request = 8192;
// Kept for the run: three texts, each ended by a zero byte.
std::array<char, longest_request> request;

using Outputs = std::array<int, 2>;

/// The next request and its descriptors; false when there will be none.
bool receive_request(int socket, Outputs& outputs) {
  request.fill('\0');
  iovec text{request.data(), request.size() - 1};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(Outputs))> control{};
  msghdr message{};
  message.msg_iov = &text;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  if (recvmsg(socket, &message, 0) <= 0) {
    return false;
  }
  const cmsghdr* rights = CMSG_FIRSTHDR(&message);
  if (rights == nullptr || rights->cmsg_len != CMSG_LEN(sizeof(Outputs))) {
    return false;
  }
  std::memcpy(outputs.data(), CMSG_DATA(rights), sizeof(Outputs));
  return true;
}

void become_run(int socket, const Outputs& outputs) {
  setsid();
  dup2(outputs[0], STDOUT_FILENO);
  dup2(outputs[1], STDERR_FILENO);
  close(outputs[0]);
  close(outputs[1]);
  close(socket);
}

FaultOfRun requested_fault() {
  const char* error = request.data() + std::strlen(request.data()) + 1;
  return {request.data(), error, error + std::strlen(error) + 1};
}

}  // namespace

FaultOfRun serve_runs(int socket) {
  Outputs outputs{};
  while (receive_request(socket, outputs)) {
    const pid_t run = _Fork();
    if (run == 0) {
      become_run(socket, outputs);
      return requested_fault();
    }
    close(outputs[0]);
    close(outputs[1]);
    send(socket, &run, sizeof(run), 0);
    int status = 0;
    waitpid(run, &status, 0);
    send(socket, &status, sizeof(status), 0);
  }
  _exit(0);
}
