#include "station/old_guide.hpp"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <string_view>

#include "platform/syntax/text.hpp"
#include "station/channel_report.hpp"
#include "station/guards.hpp"
#include "station/well_formed.hpp"
#include "writers/xml_escape.hpp"

namespace {

constexpr std::string_view channel_begin = "  <channel id=\"";
constexpr std::string_view programme_begin = "  <programme start=\"";
constexpr std::string_view programme_end = "  </programme>\n";

std::string escaped_id(const std::string& id) {
  std::string text;
  append_xml_escaped(text, id);
  return text;
}

/// Takes the number of these digits from the front. Nothing when there is another character.
std::optional<int> take_digits(std::string_view& text, size_t digits) {
  int number = 0;
  const std::string_view taken = text.substr(0, digits);
  text.remove_prefix(taken.size());
  return taken.size() == digits && std::ranges::all_of(taken, is_digit) &&
                 std::from_chars(taken.data(), taken.data() + digits, number).ec == std::errc()
             ? std::optional(number)
             : std::nullopt;
}

/// "YYYYMMDDhhmmss +hhmm" as a calendar time.
std::optional<time_t> time_of(std::string_view text) {
  constexpr size_t length = 20;
  constexpr std::array<size_t, 6> widths = {4, 2, 2, 2, 2, 2};
  std::array<int, 6> parts{};
  if (text.size() != length) {
    return std::nullopt;
  }
  for (size_t i = 0; i < widths.size(); ++i) {
    const auto number = take_digits(text, widths.at(i));
    if (!number) {
      return std::nullopt;
    }
    parts.at(i) = *number;
  }
  const bool is_west = text.starts_with(" -");
  if (!is_west && !text.starts_with(" +")) {
    return std::nullopt;
  }
  text.remove_prefix(2);
  const auto hours = take_digits(text, 2);
  const auto minutes = take_digits(text, 2);
  if (!hours || !minutes) {
    return std::nullopt;
  }
  std::tm tm{};
  tm.tm_year = parts[0] - 1900;
  tm.tm_mon = parts[1] - 1;
  tm.tm_mday = parts[2];
  tm.tm_hour = parts[3];
  tm.tm_min = parts[4];
  tm.tm_sec = parts[5];
  const time_t offset = (*hours * 60 + *minutes) * 60;
  return timegm(&tm) + (is_west ? offset : -offset);
}

/// Takes the text up to the mark, and the mark, from the front. Nothing when it is not there.
std::optional<std::string_view> take_until(std::string_view& text, std::string_view mark) {
  const size_t place = text.find(mark);
  if (place == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view taken = text.substr(0, place);
  text.remove_prefix(place + mark.size());
  return taken;
}

}  // namespace

OldGuide::OldGuide(const std::string& path) : file_(open_regular_file(AT_FDCWD, path.c_str())) {
  const auto content = file_.is_open() ? read_content(file_.get()) : std::nullopt;
  if (content) {
    index_channels(*content);
    index_programmes(*content);
  } else if (errno != ENOENT) {
    error_ = errno;
  }
}

void OldGuide::index_channels(const std::string& content) {
  for (size_t at = 0; (at = content.find(channel_begin, at)) != std::string::npos;) {
    at += channel_begin.size();
    const size_t end = content.find('"', at);
    if (end == std::string::npos) {
      return;
    }
    if (std::string_view(content).substr(end).starts_with("\">\n")) {
      channels_.try_emplace(content.substr(at, end - at));
    }
    at = end;
  }
}

void OldGuide::index_programmes(const std::string& content) {
  std::string_view rest = content;
  while (const auto element = take_until(rest, programme_end)) {
    // An element that has no end comes before the next one.
    const size_t begin = element->rfind(programme_begin);
    if (begin == std::string_view::npos) {
      continue;
    }
    const uint64_t offset = static_cast<uint64_t>(element->data() - content.data()) + begin;
    std::string_view attributes = element->substr(begin + programme_begin.size());
    const auto start = time_of(take_until(attributes, "\"").value_or(""));
    std::optional<time_t> stop;
    if (attributes.starts_with(" stop=\"")) {
      attributes.remove_prefix(attributes.find('"') + 1);
      stop = time_of(take_until(attributes, "\"").value_or(""));
    }
    const auto before_id = take_until(attributes, " channel=\"");
    const auto id = take_until(attributes, "\">\n");
    if (start && before_id && before_id->empty() && id) {
      channels_[std::string(*id)].push_back(
          {*start, stop.value_or(*start), offset, element->size() - begin + programme_end.size()});
    }
  }
}

bool OldGuide::has_channel(const std::string& id) const {
  return channels_.contains(escaped_id(id));
}

uint64_t OldGuide::count(const std::string& id, time_t begin, time_t end, time_t& last) const {
  const auto channel = channels_.find(escaped_id(id));
  uint64_t number = 0;
  if (channel != channels_.end()) {
    for (const OldProgramme& programme : channel->second) {
      if (programme.start >= begin && programme.start < end) {
        last = number == 0 ? programme.start : std::max(last, programme.start);
        ++number;
      }
    }
  }
  return number;
}

std::optional<OldProgrammes> OldGuide::copy_ahead(const std::string& id, time_t now, int to) const {
  const auto channel = channels_.find(escaped_id(id));
  OldProgrammes found;
  if (channel == channels_.end()) {
    return found;
  }
  for (const OldProgramme& programme : channel->second) {
    if (programme.end <= now) {
      continue;
    }
    if (!complaint_about_document("xml", file_.get(), programme.offset, programme.bytes).empty()) {
      ++found.unreadable;
      continue;
    }
    ChannelPart part;
    part.offset = programme.offset;
    part.bytes = programme.bytes;
    if (!copy_part(file_.get(), part, to)) {
      return std::nullopt;
    }
    ++found.copied;
  }
  return found;
}

std::string complaint_about_programmes(const std::vector<Programme>& programmes,
                                       const OldGuide& guide, const StationChannel& channel,
                                       const GuideTimes& times, time_t now) {
  const time_t begin = std::max(now, times.begin);
  time_t last = begin;
  const uint64_t old = guide.count(channel.id, begin, times.end, last);
  const auto number = std::ranges::count_if(programmes, [&](const Programme& programme) {
    return programme.start >= begin && programme.start <= last;
  });
  return complaint_about_share(static_cast<uint64_t>(number), old, channel.min_percent,
                               "programmes ahead", "in the old guide");
}
