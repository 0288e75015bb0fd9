#pragma once

#include <string>
#include <string_view>

/// Answers the request of a web server (CGI, RFC 3875) by the program nv8x_schedule_to_xml, which
/// takes the place of this process. The query chooses one of the configured channels and one of the
/// formats, and nothing else of it is used. Returns the exit status when there is no such channel,
/// which is an answer too, or when there is no answer; the reason is then on standard error.
int answer_request(const std::string& config_file, std::string_view query);
