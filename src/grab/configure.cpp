#include "grab/configure.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/syntax/text.hpp"
#include "platform/time/known_zone.hpp"
#include "station/replaced_file.hpp"
#include "station/station_config.hpp"

namespace {

class Questions {
 public:
  Questions(std::FILE* in, std::FILE* out) : in_(in), out_(out) {}

  /// Asks until complain(answer) is empty, and returns the answer. Nothing at the end of the input.
  template <typename Complain>
  std::optional<std::string> ask(const char* question, Complain complain) {
    for (;;) {
      std::fprintf(out_, "%s ", question);
      std::fflush(out_);
      std::optional<std::string> answer = read_line();
      if (!answer) {
        return std::nullopt;
      }
      const std::string complaint = complain(*answer);
      if (complaint.empty()) {
        return answer;
      }
      std::fprintf(out_, "%s.\n", complaint.c_str());
    }
  }

 private:
  std::optional<std::string> read_line() {
    std::string line;
    int c = 0;
    while ((c = std::fgetc(in_)) != EOF && c != '\n') {
      line += static_cast<char>(c);
    }
    if (c == EOF && line.empty()) {
      return std::nullopt;
    }
    chomp(line);
    return std::string(strip_blanks(line));
  }

  std::FILE* in_;
  std::FILE* out_;
};

std::string complaint_about_yes_or_no(const std::string& answer) {
  return answer.empty() || answer == "yes" || answer == "no" ? std::string() : "Answer yes or no";
}

std::string complaint_about_id(const std::string& text, const std::set<std::string>& ids) {
  if (ids.contains(text)) {
    return "'" + text + "' is there already";
  }
  if (!text.empty() && !is_channel_id(text)) {
    return "An id is UTF-8 text without control characters and doubled blanks";
  }
  return complaint_about_value(text);
}

/// The configuration holds absolute paths, because the grabber may be started elsewhere.
std::string absolute_folder(const std::string& text) {
  return std::filesystem::absolute(text).lexically_normal().string();
}

std::string complaint_about_folder(const std::string& text) {
  std::error_code error;
  return std::filesystem::is_directory(text, error) ? complaint_about_value(absolute_folder(text))
                                                    : "'" + text + "' is no folder";
}

/// The questions about the texts and the zone. False at the end of the input.
bool ask_for_texts(Questions& questions, StationChannel& channel) {
  const auto name = questions.ask("Name to show:", complaint_about_value);
  const auto language =
      questions.ask("Language of the texts, such as en (may be empty):", complaint_about_value);
  const auto zone = questions.ask("Time zone, such as Europe/London:", [](const std::string& text) {
    return is_known_zone(text) ? std::string() : "The machine knows no zone '" + text + "'";
  });
  channel.name = name.value_or("");
  channel.language = language.value_or("");
  channel.zone = zone.value_or("");
  return name && language && zone;
}

/// The questions about the channel's files. False at the end of the input.
bool ask_for_files(Questions& questions, StationChannel& channel) {
  const auto folder = questions.ask("Folder of the channel's files:", complaint_about_folder);
  if (!folder) {
    return false;
  }
  channel.folder = absolute_folder(*folder);
  const auto schedule =
      questions.ask("Schedule file, as seen from there:", [&](const std::string& text) {
        StationChannel tried = channel;
        tried.schedule = text;
        const std::string complaint = complaint_about_value(text);
        return text.empty()        ? "A file is needed"
               : complaint.empty() ? complaint_about_channel(tried)
                                   : complaint;
      });
  channel.schedule = schedule.value_or("");
  return schedule.has_value();
}

/// The other questions. False at the end of the input.
bool ask_for_appearance(Questions& questions, StationChannel& channel) {
  const auto icon = questions.ask("Address of an icon (may be empty):", complaint_about_value);
  const auto previous =
      questions.ask("Show what is on air when the first day begins (yes or no, empty: no)?",
                    complaint_about_yes_or_no);
  channel.icon = icon.value_or("");
  channel.previous = previous == "yes";
  return icon && previous;
}

/// Asks for one channel. Nothing at the end of the input. An empty id ends the questions.
std::optional<StationChannel> ask_for_channel(Questions& questions,
                                              const std::set<std::string>& ids) {
  StationChannel channel;
  const auto id =
      questions.ask("Channel id, such as kbt1.example (empty: no more channels):",
                    [&](const std::string& text) { return complaint_about_id(text, ids); });
  if (!id || id->empty()) {
    return id ? std::optional(channel) : std::nullopt;
  }
  channel.id = *id;
  const bool is_answered = ask_for_texts(questions, channel) && ask_for_files(questions, channel) &&
                           ask_for_appearance(questions, channel);
  return is_answered ? std::optional(channel) : std::nullopt;
}

}  // namespace

bool configure_guide(std::FILE* in, std::FILE* out, const std::string& path) {
  Questions questions(in, out);
  std::vector<StationChannel> channels;
  std::set<std::string> ids;
  for (;;) {
    std::optional<StationChannel> channel = ask_for_channel(questions, ids);
    if (!channel) {
      std::fprintf(stderr, "tv_grab_nv8x: no more answers; nothing was written\n");
      return false;
    }
    if (channel->id.empty()) {
      break;
    }
    ids.insert(channel->id);
    channels.push_back(*std::move(channel));
  }
  if (channels.empty()) {
    std::fprintf(stderr, "tv_grab_nv8x: no channel; nothing was written\n");
    return true;
  }
  std::error_code ignored;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
  ReplacedFile file(path, NewMode::as_before);
  if (!file.is_open() || !file.write(text_of_station_config(channels)) || !file.publish()) {
    std::fprintf(stderr, "tv_grab_nv8x: %s: %s\n", path.c_str(), std::strerror(errno));
    return false;
  }
  std::fprintf(out, "%zu channels written to %s\n", channels.size(), path.c_str());
  return true;
}
