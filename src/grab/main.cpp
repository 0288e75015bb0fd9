#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "grab/configure.hpp"
#include "grab/grab_options.hpp"
#include "grab/guide.hpp"
#include "grab/guide_config.hpp"
#include "grab/guide_file.hpp"
#include "platform/system/clock.hpp"
#include "platform/system/file.hpp"
#include "platform/system/output.hpp"

namespace {

int fail(const std::string& what, const std::string& why) {
  std::fprintf(stderr, "tv_grab_nv8x: %s: %s\n", what.c_str(), why.c_str());
  return EXIT_FAILURE;
}

/// The channels that the command is about; nothing, after a message, when there is a mistake.
std::optional<std::vector<GuideChannel>> channels_of(const GrabCommand& command) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, command.config_file.c_str());
  const auto content = file.is_open() ? read_content(file.get()) : std::nullopt;
  if (!content) {
    fail(command.config_file,
         std::string(std::strerror(errno)) + "; --configure asks for the channels");
    return std::nullopt;
  }
  ConfigMistake mistake{};
  auto channels = parse_guide_config(*content, mistake);
  if (!channels) {
    fail(command.config_file + ":" + std::to_string(mistake.line), mistake.text);
    return std::nullopt;
  }
  if (!command.channel.empty()) {
    std::erase_if(*channels,
                  [&](const GuideChannel& channel) { return channel.id != command.channel; });
    if (channels->empty()) {
      fail(command.config_file, "no channel '" + command.channel + "'");
      return std::nullopt;
    }
  }
  return channels;
}

/// Writes what the command asks for; the exit status. An empty guide is no guide.
int write_to(int fd, const GrabCommand& command, const std::vector<GuideChannel>& channels,
             bool& is_empty) {
  if (command.task == GrabTask::channels) {
    return write_channels(fd, channels) ? EXIT_SUCCESS
                                        : fail("the guide cannot be written", std::strerror(errno));
  }
  const auto result = write_guide(fd, channels, command.run, current_time());
  if (!result) {
    return fail("the guide cannot be written", std::strerror(errno));
  }
  is_empty = result->programmes == 0 && !channels.empty();
  if (is_empty && command.output.empty()) {
    fail("the guide", "no channel has a programme in these days");
  }
  return result->failed == 0 && !is_empty ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Whether the file is a guide that has programmes, and so is not to be replaced by an empty one.
bool has_programmes(const std::string& path) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str());
  const auto content = file.is_open() ? read_content(file.get()) : std::nullopt;
  return content && content->find("<programme ") != std::string::npos;
}

int write_file(const GrabCommand& command, const std::vector<GuideChannel>& channels) {
  GuideFile file(command.output);
  if (!file.is_open()) {
    return fail(command.output, std::strerror(errno));
  }
  bool is_empty = false;
  const int status = write_to(file.fd(), command, channels, is_empty);
  if (is_empty && has_programmes(command.output)) {
    return fail(command.output, "the new guide is empty; the old one stays");
  }
  if (is_empty) {
    fail(command.output, "no channel has a programme in these days");
  }
  return file.publish() ? status : fail(command.output, std::strerror(errno));
}

}  // namespace

int main(int argc, char** argv) {
  prepare_standard_streams();
  int status = EXIT_SUCCESS;
  const std::optional<GrabCommand> command = parse_grab_command(argc, argv, status);
  if (!command) {
    return status;
  }
  if (command->task == GrabTask::configure) {
    return configure_guide(stdin, stderr, command->config_file) ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  const auto channels = channels_of(*command);
  if (!channels) {
    return EXIT_FAILURE;
  }
  bool is_empty = false;
  return command->output.empty() ? write_to(STDOUT_FILENO, *command, *channels, is_empty)
                                 : write_file(*command, *channels);
}
