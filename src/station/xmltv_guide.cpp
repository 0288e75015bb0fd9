#include "station/xmltv_guide.hpp"

#include "station/channel_process.hpp"
#include "writers/append.hpp"
#include "writers/xml_escape.hpp"

std::string guide_head(const std::vector<const StationChannel*>& channels) {
  std::string out =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE tv SYSTEM \"xmltv.dtd\">\n\n"
      "<tv generator-info-name=\"tv_grab_nv8x\">\n";
  for (const StationChannel* channel : channels) {
    append(out, "  <channel id=\"");
    append_xml_escaped(out, channel->id);
    append(out, "\">\n    <display-name");
    if (!channel->language.empty()) {
      append(out, " lang=\"");
      append_xml_escaped(out, clean_text(channel->language));
      append(out, "\"");
    }
    append(out, ">");
    append_xml_escaped(out, clean_text(channel->name));
    append(out, "</display-name>\n");
    if (!channel->icon.empty()) {
      append(out, "    <icon src=\"");
      append_xml_escaped(out, clean_text(channel->icon));
      append(out, "\"/>\n");
    }
    append(out, "  </channel>\n");
  }
  return out;
}

void write_programmes(const std::vector<Programme>& programmes, const StationChannel& channel,
                      int file) {
  constexpr size_t large = 1024UL * 1024;
  const std::string language = clean_text(channel.language);
  std::string out;
  for (const Programme& programme : programmes) {
    append_programme(out, programme, channel.id, language);
    if (out.size() > large) {
      write_channel_file(file, out);
      out.clear();
    }
  }
  write_channel_file(file, out);
}
