#pragma once

#include <cstdint>
#include <string>

enum class OutputFormat { xml = 0, html = 1, json = 2, rovi = 3, gracenote = 4 };

/// The command line of the run. The driver sets it once; after that it is only read. It is declared
/// here because the passes and the writers read it too.
struct RunOptions {
  std::string schedule_path;   ///< empty: not given
  std::string rendermgr_path;  ///< empty: not given
  int32_t channel = -1;        ///< negative: no channel
  uint64_t report_time = 0;    ///< Unix seconds; 0 is replaced by the current time
  bool cgi = false;            ///< errors and the document are CGI responses (RFC 3875)
  bool pcn_week = false;       ///< report only the previous to the next week
  bool pcn_month = false;      ///< report only the previous to the next month
  bool debug_patch = false;    ///< trace the passes on standard error
  OutputFormat format = OutputFormat::xml;
  std::string station_id;  ///< first column of the listing formats
};

extern RunOptions run_options;
