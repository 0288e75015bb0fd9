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
#include "platform/system/clock.hpp"
#include "platform/system/file.hpp"
#include "platform/system/output.hpp"
#include "station/early_end.hpp"
#include "station/old_guide.hpp"
#include "station/replaced_file.hpp"
#include "station/station_config.hpp"

namespace {

int fail(const std::string& what, const std::string& why) {
  std::fprintf(stderr, "tv_grab_nv8x: %s: %s\n", what.c_str(), why.c_str());
  return EXIT_FAILURE;
}

/// The channels that the command is about. Nothing, after a message, when there is a mistake.
std::optional<std::vector<StationChannel>> channels_of(const GrabCommand& command) {
  auto channels = read_station_config("tv_grab_nv8x", command.config_file,
                                      "; --configure asks for the channels");
  if (!channels) {
    return std::nullopt;
  }
  if (!command.channel.empty()) {
    std::erase_if(*channels,
                  [&](const StationChannel& channel) { return channel.id != command.channel; });
    if (channels->empty()) {
      fail(command.config_file, "no channel '" + command.channel + "'");
      return std::nullopt;
    }
  }
  return channels;
}

enum class GuideOutcome { whole, parts, empty, failed };

/// Writes what the command asks for, and reports errors.
GuideOutcome write_to(int fd, const GrabCommand& command,
                      const std::vector<StationChannel>& channels, const OldGuide& old_guide) {
  std::string error;
  std::optional<GuideResult> result = GuideResult();
  if (command.task == GrabTask::guide) {
    result = write_guide(fd, channels, command.run, old_guide, current_time(), error);
  } else if (!write_channels(fd, channels)) {
    error = std::strerror(errno);
  }
  if (!error.empty()) {
    fail("the guide cannot be written", error);
    return GuideOutcome::failed;
  }
  if (command.task == GrabTask::guide && result->programmes == 0 && !channels.empty()) {
    return GuideOutcome::empty;
  }
  return result->lacking == 0 ? GuideOutcome::whole : GuideOutcome::parts;
}

int write_to_standard_output(const GrabCommand& command,
                             const std::vector<StationChannel>& channels) {
  const GuideOutcome outcome = write_to(STDOUT_FILENO, command, channels, OldGuide());
  if (outcome == GuideOutcome::empty) {
    fail("the guide", "no channel has a programme in these days");
  }
  return outcome == GuideOutcome::whole ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Whether a guide without programmes may replace the old file. Prints the reason if not.
bool may_be_emptied(const std::string& path) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str());
  if (!file.is_open() && errno == ENOENT) {
    return true;
  }
  const auto content = file.is_open() ? read_content(file.get()) : std::nullopt;
  if (!content) {
    fail(path, std::strerror(errno));
    return false;
  }
  const bool has_programmes = content->find("<programme ") != std::string::npos;
  if (has_programmes) {
    fail(path, "the new guide is empty; the old one stays");
  }
  return !has_programmes;
}

/// A channel that failed keeps its programmes of the old guide. An incomplete guide is not
/// published.
int write_file(const GrabCommand& command, const std::vector<StationChannel>& channels) {
  ReplacedFile file(command.output, NewMode::readable);
  if (!file.is_open()) {
    return fail(command.output, std::strerror(errno));
  }
  const OldGuide old_guide = file.is_draft() ? OldGuide(command.output) : OldGuide();
  if (!old_guide.is_readable()) {
    return fail(command.output, std::strerror(old_guide.error()));
  }
  const GuideOutcome outcome = write_to(file.fd(), command, channels, old_guide);
  if (outcome == GuideOutcome::failed ||
      (outcome == GuideOutcome::empty && file.is_draft() && !may_be_emptied(command.output))) {
    return EXIT_FAILURE;
  }
  if (!file.publish()) {
    return fail(command.output, std::strerror(errno));
  }
  if (outcome == GuideOutcome::empty) {
    fail(command.output, "no channel has a programme in these days");
  }
  return outcome == GuideOutcome::whole ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  prepare_standard_streams();
  prepare_for_early_end("tv_grab_nv8x", EXIT_FAILURE);
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
  return command->output.empty() ? write_to_standard_output(*command, *channels)
                                 : write_file(*command, *channels);
}
