#include "station/channel_process.hpp"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

#include "platform/syntax/text.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/calendar.hpp"

namespace {

/// What this process works on; the functions for failures and warnings need it.
const ChannelWork* work_at_hand = nullptr;

/// The texts that were already printed, in order. There are only a few different ones.
std::vector<std::string> warnings;

[[noreturn]] void end_with(ChannelEnd end) {
  _exit(static_cast<int>(end));
}

void print_kept_warnings() {
  for (const std::string& text : warnings) {
    print_channel_message(text.c_str());
  }
}

/// If a schedule cannot be read to its end, the channel has failed.
void take_warning(Warning kind, std::string_view text) {
  std::string line(text);
  chomp(line);
  if (kind == Warning::cut_short && work_at_hand->attempt == Attempt::first) {
    end_with(ChannelEnd::lacking);
  }
  if (kind == Warning::cut_short) {
    fail_channel(line);
  }
  if (std::ranges::find(warnings, line) == warnings.end()) {
    warnings.push_back(line);
  }
}

/// What the machine lacks now may be available to a process that works alone.
void end_lacking(const char* message) {
  if (work_at_hand->attempt == Attempt::last) {
    print_kept_warnings();
    print_channel_message(message);
  }
  end_with(ChannelEnd::lacking);
}

/// Each process has its own memory limit, so a channel that takes too much harms only itself.
[[noreturn]] void end_channel_without_memory() {
  if (work_at_hand->attempt == Attempt::first) {
    end_with(ChannelEnd::lacking);
  }
  print_channel_message("Out of memory");
  end_with(ChannelEnd::failed);
}

void enter_channel(const StationChannel& channel) {
  setenv("TZ", channel.zone.c_str(), 1);
  tzset();
  if (!settle_local_zone()) {
    fail_run_for_shortage("%s: %s", "the zone cannot be read");
    fail_channel(std::string("the zone cannot be read: ") + std::strerror(errno));
  }
  if (chdir(channel.folder.c_str()) != 0) {
    fail_channel("'" + channel.folder + "': " + std::strerror(errno));
  }
}

}  // namespace

void work_on_channel(const ChannelWork& work, const ChannelTask& task, int file) {
  work_at_hand = &work;
  set_failure_reporter(end_lacking);
  set_warning_reporter(take_warning);
  std::set_new_handler(end_channel_without_memory);
  enter_channel(work.channel);
  task(work, file);
  print_kept_warnings();
  end_with(ChannelEnd::done);
}

void print_channel_message(const char* text) {
  std::fprintf(stderr, "%s: %s: %s\n", work_at_hand->program, work_at_hand->channel.id.c_str(),
               text);
}

void fail_channel(const std::string& reason) {
  print_kept_warnings();
  print_channel_message(reason.c_str());
  end_with(ChannelEnd::failed);
}

void write_channel_file(int file, std::string_view text) {
  if (!write_fully(file, text)) {
    end_lacking(std::strerror(errno));
  }
}

uint64_t place_in_channel_file(int file) {
  const off_t place = lseek(file, 0, SEEK_CUR);
  if (place < 0) {
    end_lacking(std::strerror(errno));
  }
  return static_cast<uint64_t>(place);
}

void seek_channel_file(int file, long offset) {
  if (lseek(file, offset, SEEK_SET) != offset) {
    end_lacking(std::strerror(errno));
  }
}
