#include "publish/station_index.hpp"

#include <fcntl.h>
#include <unistd.h>

#include "platform/system/file.hpp"
#include "platform/time/local_text.hpp"
#include "publish/channel_pages.hpp"
#include "publish/station_guide.hpp"
#include "station/programme_texts.hpp"
#include "writers/append.hpp"
#include "writers/xml_escape.hpp"

namespace {

// The colours are those of the browser, so the page follows its light or dark mode.
constexpr const char* page_head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<meta name="color-scheme" content="light dark">
<title>Programme guide</title>
<style>
:root { color-scheme: light dark; font: 100%/1.5 sans-serif; }
body { max-width: 40rem; margin: 0 auto; padding: 0 1rem 1rem; overflow-wrap: anywhere; }
section { border-top: 1px solid; }
dl { display: grid; grid-template-columns: auto 1fr; gap: 0 1rem; }
dt { font-weight: bold; }
dd { margin: 0; }
ul { display: flex; flex-wrap: wrap; gap: 0 1.5rem; padding: 0; list-style: none; }
a { display: inline-block; padding: 0.5rem 0; }
.unseen { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%); white-space: nowrap; }
</style>
</head>
<body>
<main>
<h1>Programme guide</h1>
)";
constexpr const char* page_foot = "</main>\n</body>\n</html>\n";
constexpr const char* now_begin = "<dl>\n";
constexpr const char* now_end = "</dl>\n";
constexpr const char* section_end = "</section>\n";

void append_escaped(std::string& out, std::string_view text) {
  append_xml_escaped(out, clean_text(text));
}

/// ` lang="en"`, or nothing if the channel has no language.
void append_language(std::string& out, const StationChannel& channel) {
  if (!channel.language.empty()) {
    append(out, " lang=\"");
    append_escaped(out, channel.language);
    append(out, "\"");
  }
}

/// The weekday stands before a time of another day than today.
void append_clock(std::string& out, time_t t, time_t now) {
  constexpr const char* date = "%Y-%m-%d";
  const bool is_today = local_text(t, date) == local_text(now, date);
  append(out, "<time datetime=\"", local_text(t, "%Y-%m-%dT%H:%M:%S%z"), "\">",
         local_text(t, is_today ? "%H:%M" : "%A %H:%M"), "</time>");
}

void append_programme(std::string& out, const char* when, const Programme& programme,
                      const StationChannel& channel, time_t now) {
  append(out, "<dt>", when, "</dt>\n<dd>");
  append_clock(out, programme.start, now);
  if (programme.stop > programme.start) {
    append(out, " to ");
    append_clock(out, programme.stop, now);
  }
  append(out, ": <span");
  append_language(out, channel);
  append(out, ">");
  append_escaped(out, programme.texts.title);
  append(out, "</span></dd>\n");
}

/// The beginning of a channel's section, as far as its id.
std::string section_begin(const StationChannel& channel) {
  std::string out = "<section data-channel=\"";
  append_xml_escaped(out, channel.id);
  append(out, "\">\n");
  return out;
}

/// The name of a page as a relative address.
std::string address_of(std::string_view page) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
  std::string out;
  for (const char c : page) {
    if (plain.find(c) != std::string_view::npos) {
      out += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      append(out, "%", digits.substr(byte / 16, 1), digits.substr(byte % 16, 1));
    }
  }
  return out;
}

bool has_page(const WebFolder& folder, const std::string& page) {
  return access((folder.path() + "/" + page).c_str(), F_OK) == 0;
}

}  // namespace

std::string now_html(const NowAndNext& programmes, const StationChannel& channel, time_t now) {
  std::string out = now_begin;
  if (programmes.now) {
    append_programme(out, "Now", *programmes.now, channel, now);
  }
  if (programmes.next) {
    append_programme(out, "Next", *programmes.next, channel, now);
  }
  return programmes.now || programmes.next ? out + now_end : std::string();
}

StationIndex::StationIndex(WebFolder& folder) : folder_(folder) {
  const std::string path = folder.path() + "/" + station_index_page;
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str());
  old_ = file.is_open() ? read_content(file.get()).value_or("") : "";
}

std::string StationIndex::old_now(const StationChannel& channel) const {
  const size_t section = old_.find(section_begin(channel));
  const size_t begin = old_.find(now_begin, section);
  const size_t end = old_.find(now_end, begin);
  if (end == std::string::npos || old_.find(section_end, section) < end) {
    return {};
  }
  return old_.substr(begin, end + std::string_view(now_end).size() - begin);
}

std::string StationIndex::section_of(const StationChannel& channel) const {
  std::string name = "<span";
  append_language(name, channel);
  append(name, ">");
  append_escaped(name, channel.name);
  append(name, "</span>");
  std::string links;
  for (const std::string& format : channel.formats) {
    if (const std::string page = page_name(channel.id, format); has_page(folder_, page)) {
      append(links, "<li><a href=\"", address_of(page), "\">", page_label(format),
             "<span class=\"unseen\"> of ", name, "</span></a></li>\n");
    }
  }
  if (links.empty()) {
    return {};
  }
  const auto now = now_.find(channel.id);
  return section_begin(channel) + "<h2>" + name + "</h2>\n" +
         (now != now_.end() ? now->second : old_now(channel)) + "<ul>\n" + links + "</ul>\n" +
         section_end;
}

PageRow StationIndex::publish(const std::vector<const StationChannel*>& channels) {
  PageRow row{"*", "html", Outcome::failed, "", std::nullopt, 0};
  std::string text = page_head;
  for (const StationChannel* channel : channels) {
    text += section_of(*channel);
  }
  if (has_page(folder_, station_guide_page)) {
    append(text, "<section>\n<h2>All channels</h2>\n<ul>\n<li><a href=\"", station_guide_page,
           "\">", page_label(xmltv_format), "<span class=\"unseen\"> of all channels</span></a>",
           "</li>\n</ul>\n", section_end);
  }
  row.outcome = folder_.publish(
      station_index_page, [&](int file) { return write_fully(file, text + page_foot); },
      row.reason);
  return row;
}
