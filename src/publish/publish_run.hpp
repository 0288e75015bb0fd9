#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "publish/page_report.hpp"
#include "publish/publish_options.hpp"
#include "station/station_config.hpp"

/// Publishes the pages of the channels, and the station's guides. `all` has all channels of the
/// configuration, `asked` those that the run is about. Prints each page that is refused or failed
/// on standard error. Returns the rows in the order of the channels; the station's guides are last.
/// Nothing is added to `error` unless the run could not go on, or the state of a web folder could
/// not be written.
std::vector<PageRow> publish_channels(const PublishCommand& command,
                                      const std::vector<StationChannel>& all,
                                      const std::vector<const StationChannel*>& asked, time_t now,
                                      std::string& error);
