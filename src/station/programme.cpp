#include "station/programme.hpp"

#include <cstdint>
#include <cstdlib>

#include "writers/append.hpp"
#include "writers/xml_escape.hpp"

namespace {

/// "YYYYMMDDhhmmss +hhmm", with the offset of the local clocks at that time.
void append_time(std::string& out, time_t t) {
  std::tm tm{};
  if (localtime_r(&t, &tm) == nullptr) {
    return;
  }
  append_padded(out, static_cast<unsigned>(tm.tm_year + 1900), 4);
  for (const int part : {tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec}) {
    append_padded(out, static_cast<unsigned>(part), 2);
  }
  const long minutes = (std::labs(tm.tm_gmtoff) + 30) / 60;
  append(out, tm.tm_gmtoff < 0 && minutes > 0 ? " -" : " +");
  append_padded(out, static_cast<unsigned>(minutes / 60 * 100 + minutes % 60), 4);
}

void append_text_element(std::string& out, std::string_view element, std::string_view text,
                         std::string_view language = {}) {
  if (text.empty()) {
    return;
  }
  append(out, "    <", element);
  if (!language.empty()) {
    append(out, " lang=\"");
    append_xml_escaped(out, language);
    append(out, "\"");
  }
  append(out, ">");
  append_xml_escaped(out, text);
  append(out, "</", element, ">\n");
}

std::string counted_from_0(const std::string& number) {
  const uint64_t value = std::strtoull(number.c_str(), nullptr, 10);
  return value > 0 ? std::to_string(value - 1) : std::string();
}

std::string two_digits(const std::string& number) {
  std::string text = std::to_string(std::strtoull(number.c_str(), nullptr, 10));
  return text.size() < 2 ? "0" + text : text;
}

void append_episode_numbers(std::string& out, const ProgrammeTexts& texts) {
  const std::string season = counted_from_0(texts.season);
  const std::string episode = counted_from_0(texts.episode);
  if (!season.empty() || !episode.empty()) {
    append(out, "    <episode-num system=\"xmltv_ns\">", season, " . ", episode,
           " . </episode-num>\n");
  }
  if (!texts.season.empty() || !texts.episode.empty()) {
    append(out, "    <episode-num system=\"onscreen\">");
    append(out, texts.season.empty() ? "" : "S" + two_digits(texts.season),
           texts.episode.empty() ? "" : "E" + two_digits(texts.episode), "</episode-num>\n");
  }
}

void append_credits(std::string& out, const ProgrammeTexts& texts) {
  if (texts.credits.empty()) {
    return;
  }
  append(out, "    <credits>\n");
  for (const auto& [element, name] : texts.credits) {
    append(out, "  ");
    append_text_element(out, element, name);
  }
  append(out, "    </credits>\n");
}

void append_rating(std::string& out, const ProgrammeTexts& texts) {
  if (texts.rating.empty()) {
    return;
  }
  append(out, "    <rating");
  if (!texts.rating_system.empty()) {
    append(out, " system=\"");
    append_xml_escaped(out, texts.rating_system);
    append(out, "\"");
  }
  append(out, ">\n      <value>");
  append_xml_escaped(out, texts.rating);
  append(out, "</value>\n    </rating>\n");
}

}  // namespace

bool has_four_digit_year(time_t t) {
  std::tm tm{};
  return localtime_r(&t, &tm) != nullptr && tm.tm_year + 1900 <= 9999;
}

void append_programme(std::string& out, const Programme& programme, const std::string& channel,
                      const std::string& language) {
  const ProgrammeTexts& texts = programme.texts;
  append(out, "  <programme start=\"");
  append_time(out, programme.start);
  if (programme.stop > programme.start && has_four_digit_year(programme.stop)) {
    append(out, "\" stop=\"");
    append_time(out, programme.stop);
  }
  append(out, "\" channel=\"");
  append_xml_escaped(out, channel);
  append(out, "\">\n");
  append_text_element(out, "title", texts.title, language);
  append_text_element(out, "sub-title", texts.sub_title, language);
  append_text_element(out, "desc", texts.description, language);
  append_credits(out, texts);
  append_text_element(out, "date", texts.date);
  for (const std::string& category : texts.categories) {
    append_text_element(out, "category", category, language);
  }
  append_text_element(out, "language", texts.language);
  append_episode_numbers(out, texts);
  append(out, texts.is_hd ? "    <video>\n      <quality>HDTV</quality>\n    </video>\n" : "",
         texts.is_repeat ? "    <previously-shown/>\n" : "",
         texts.has_captions ? "    <subtitles type=\"teletext\"/>\n" : "");
  append_rating(out, texts);
  append(out, "  </programme>\n");
}
