#include "grab/channel_process.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "grab/programme.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/calendar.hpp"

namespace {

/// What this process works on; the functions for failures and warnings need it.
const ChannelWork* work_at_hand = nullptr;

/// The texts that were already printed, in order. There are only a few different ones.
std::vector<std::string> warnings;

void print_message(const char* text) {
  std::fprintf(stderr, "tv_grab_nv8x: %s: %s\n", work_at_hand->channel.id.c_str(), text);
}

[[noreturn]] void end_with(ChannelEnd end) {
  _exit(static_cast<int>(end));
}

void print_kept_warnings() {
  for (const std::string& text : warnings) {
    print_message(text.c_str());
  }
}

[[noreturn]] void fail_channel(const std::string& reason) {
  print_kept_warnings();
  print_message(reason.c_str());
  end_with(ChannelEnd::failed);
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
    print_message(message);
  }
  end_with(ChannelEnd::lacking);
}

/// Each process has its own memory limit, so a channel that takes too much harms only itself.
[[noreturn]] void end_channel_without_memory() {
  if (work_at_hand->attempt == Attempt::first) {
    end_with(ChannelEnd::lacking);
  }
  print_message("Out of memory");
  end_with(ChannelEnd::failed);
}

void enter_channel(const GuideChannel& channel) {
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

void write_or_end(int fd, std::string_view text) {
  if (!write_fully(fd, text)) {
    end_lacking(std::strerror(errno));
  }
}

void write_programmes(const std::vector<Programme>& programmes, const GuideChannel& channel,
                      int fd) {
  constexpr size_t large = 1024UL * 1024;
  ProgrammesHead head{programmes.size(), 0};
  const std::string language = clean_text(channel.language);
  std::string out(sizeof(head), '\0');
  for (const Programme& programme : programmes) {
    append_programme(out, programme, channel.id, language);
    if (out.size() > large) {
      write_or_end(fd, out);
      head.bytes += out.size();
      out.clear();
    }
  }
  write_or_end(fd, out);
  head.bytes += out.size() - sizeof(head);
  std::array<char, sizeof(head)> bytes{};
  std::memcpy(bytes.data(), &head, sizeof(head));
  if (lseek(fd, 0, SEEK_SET) != 0) {
    end_lacking(std::strerror(errno));
  }
  write_or_end(fd, {bytes.data(), bytes.size()});
}

}  // namespace

void work_on_channel(const ChannelWork& work, const FileDescriptor& file) {
  work_at_hand = &work;
  set_failure_reporter(end_lacking);
  set_warning_reporter(take_warning);
  std::set_new_handler(end_channel_without_memory);
  enter_channel(work.channel);
  std::string error;
  const auto programmes = programmes_of_channel(work.channel, work.span, work.now, error);
  if (!programmes) {
    fail_channel(error);
  }
  write_programmes(*programmes, work.channel, file.get());
  print_kept_warnings();
  end_with(ChannelEnd::done);
}
