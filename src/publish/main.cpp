#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/syntax/nearest_word.hpp"
#include "platform/system/clock.hpp"
#include "platform/system/output.hpp"
#include "publish/answer_request.hpp"
#include "publish/check_config.hpp"
#include "publish/page_report.hpp"
#include "publish/path_unit.hpp"
#include "publish/publish_options.hpp"
#include "publish/publish_run.hpp"
#include "station/early_end.hpp"
#include "station/station_config.hpp"

namespace {

constexpr int something_is_bad = 1;

/// The channels that the command is about. Nothing, after a message, when there is no such channel.
std::optional<std::vector<const StationChannel*>> asked_channels(
    const PublishCommand& command, const std::vector<StationChannel>& all) {
  std::vector<const StationChannel*> asked;
  std::vector<std::string_view> ids;
  for (const StationChannel& channel : all) {
    ids.emplace_back(channel.id);
    if (command.only.empty() || std::ranges::find(command.only, channel.id) != command.only.end()) {
      asked.push_back(&channel);
    }
  }
  bool is_known = true;
  for (const std::string& id : command.only) {
    if (std::ranges::find(ids, id) == ids.end()) {
      std::fprintf(stderr, "%s: %s: no channel '%s'%s\n", publisher, command.config_file.c_str(),
                   id.c_str(), did_you_mean(id, ids).c_str());
      is_known = false;
    }
  }
  return is_known ? std::optional(std::move(asked)) : std::nullopt;
}

int publish(const PublishCommand& command, const std::vector<StationChannel>& all,
            const std::vector<const StationChannel*>& asked) {
  std::string error;
  const std::vector<PageRow> rows = publish_channels(command, all, asked, current_time(), error);
  if (!error.empty()) {
    std::fprintf(stderr, "%s: %s\n", publisher, error.c_str());
  }
  if (command.json) {
    print_output(json_of(rows));
    finish_output();
  }
  const bool is_good = error.empty() && std::ranges::none_of(rows, [](const PageRow& row) {
                         return is_bad(row.outcome);
                       });
  return is_good ? EXIT_SUCCESS : something_is_bad;
}

}  // namespace

int main(int argc, char** argv) {
  prepare_standard_streams();
  prepare_for_early_end(publisher, something_is_bad);
  int status = EXIT_SUCCESS;
  const std::optional<PublishCommand> command = parse_publish_command(argc, argv, status);
  if (!command) {
    return status;
  }
  if (command->cgi) {
    const char* const query = std::getenv("QUERY_STRING");
    return answer_request(command->config_file, query != nullptr ? query : "");
  }
  const auto channels = read_station_config(publisher, command->config_file);
  const bool is_usable = channels && print_page_mistakes(command->config_file, *channels);
  if (command->check_config) {
    return channels && print_machine_mistakes(command->config_file, *channels) && is_usable
               ? EXIT_SUCCESS
               : could_not_begin;
  }
  if (command->print_path_unit && channels) {
    print_output(path_unit_of(*channels));
    finish_output();
    return EXIT_SUCCESS;
  }
  const auto asked = is_usable ? asked_channels(*command, *channels) : std::nullopt;
  return asked ? publish(*command, *channels, *asked) : could_not_begin;
}
