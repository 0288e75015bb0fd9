#include "station/channel_report.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>

#include "platform/system/file.hpp"
#include "station/channel_process.hpp"

namespace {

/// The front of a channel's file.
struct ReportPlace {
  uint64_t offset;
  uint64_t bytes;
};

/// A field is its length, a colon and its bytes: a text may hold anything.
void append_field(std::string& out, std::string_view text) {
  out += std::to_string(text.size()) + ":";
  out += text;
}

void append_number_field(std::string& out, uint64_t number) {
  append_field(out, std::to_string(number));
}

std::optional<uint64_t> number_of_text(std::string_view text) {
  uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number)
                                                                  : std::nullopt;
}

/// Takes the fields of a report one by one. After the first that is not whole, all are empty.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : rest_(text) {}

  std::string take_text() {
    const size_t colon = rest_.find(':');
    const auto length =
        colon != std::string_view::npos ? number_of_text(rest_.substr(0, colon)) : std::nullopt;
    if (!length || *length > rest_.size() - colon - 1) {
      return fail();
    }
    std::string text(rest_.substr(colon + 1, *length));
    rest_.remove_prefix(colon + 1 + *length);
    return text;
  }

  uint64_t take_number() {
    const auto number = number_of_text(take_text());
    if (!number) {
      fail();
    }
    return number.value_or(0);
  }

  bool is_whole() const { return is_whole_ && rest_.empty(); }

 private:
  std::string fail() {
    is_whole_ = false;
    rest_ = {};
    return {};
  }

  std::string_view rest_;
  bool is_whole_ = true;
};

std::string text_of_report(const ChannelReport& report) {
  std::string text;
  append_number_field(text, report.refusals.size());
  for (const std::string& refusal : report.refusals) {
    append_field(text, refusal);
  }
  append_field(text, report.items ? std::to_string(*report.items) : "");
  append_number_field(text, report.parts.size());
  for (const ChannelPart& part : report.parts) {
    append_field(text, part.name);
    append_field(text, part.fault);
    for (const uint64_t number : {part.offset, part.bytes, part.count, part.microseconds}) {
      append_number_field(text, number);
    }
  }
  return text;
}

std::optional<std::string> text_at(int file, uint64_t offset, uint64_t bytes) {
  std::string text(bytes, '\0');
  const auto length = read_fully_at(file, text.data(), text.size(), static_cast<long>(offset));
  return length == text.size() ? std::optional(std::move(text)) : std::nullopt;
}

std::optional<ChannelReport> report_of_text(std::string_view text) {
  FieldReader fields(text);
  ChannelReport report;
  // A number that is wrong cannot be larger than the text.
  for (uint64_t left = std::min<uint64_t>(fields.take_number(), text.size()); left > 0; --left) {
    report.refusals.push_back(fields.take_text());
  }
  report.items = number_of_text(fields.take_text());
  for (uint64_t left = std::min<uint64_t>(fields.take_number(), text.size()); left > 0; --left) {
    ChannelPart part;
    part.name = fields.take_text();
    part.fault = fields.take_text();
    for (uint64_t* number : {&part.offset, &part.bytes, &part.count, &part.microseconds}) {
      *number = fields.take_number();
    }
    report.parts.push_back(std::move(part));
  }
  return fields.is_whole() ? std::optional(std::move(report)) : std::nullopt;
}

}  // namespace

void begin_channel_file(int file) {
  seek_channel_file(file, sizeof(ReportPlace));
}

ChannelPart begin_channel_part(int file, std::string name) {
  ChannelPart part;
  part.name = std::move(name);
  part.offset = place_in_channel_file(file);
  return part;
}

void end_channel_part(int file, ChannelPart& part) {
  part.bytes = place_in_channel_file(file) - part.offset;
}

void write_channel_report(int file, const ChannelReport& report) {
  const std::string text = text_of_report(report);
  const ReportPlace place{place_in_channel_file(file), text.size()};
  write_channel_file(file, text);
  std::array<char, sizeof(place)> bytes{};
  std::memcpy(bytes.data(), &place, sizeof(place));
  seek_channel_file(file, 0);
  write_channel_file(file, {bytes.data(), bytes.size()});
}

std::optional<ChannelReport> read_channel_report(int file) {
  ReportPlace place{};
  std::array<char, sizeof(place)> bytes{};
  const auto length = read_fully_at(file, bytes.data(), bytes.size(), 0);
  if (!length) {
    return std::nullopt;
  }
  errno = EIO;  // in case the file is not whole
  std::memcpy(&place, bytes.data(), sizeof(place));
  const off_t end = lseek(file, 0, SEEK_END);
  if (*length != sizeof(place) || end < 0 || place.offset > static_cast<uint64_t>(end) ||
      place.bytes != static_cast<uint64_t>(end) - place.offset) {
    return std::nullopt;
  }
  const auto text = text_at(file, place.offset, place.bytes);
  errno = text ? EIO : errno;
  return text ? report_of_text(*text) : std::nullopt;
}

std::optional<std::string> text_of_part(int file, const ChannelPart& part) {
  return text_at(file, part.offset, part.bytes);
}

bool copy_part(int from, const ChannelPart& part, int to) {
  std::string buffer(64UL * 1024, '\0');
  uint64_t offset = part.offset;
  for (uint64_t left = part.bytes; left > 0;) {
    errno = EIO;
    const auto wanted = static_cast<size_t>(std::min<uint64_t>(left, buffer.size()));
    const auto length = read_fully_at(from, buffer.data(), wanted, static_cast<long>(offset));
    if (length != wanted || !write_fully(to, std::string_view(buffer).substr(0, wanted))) {
      return false;
    }
    offset += wanted;
    left -= wanted;
  }
  return true;
}
