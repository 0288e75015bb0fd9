#pragma once

/// What stands before the message of an error in CGI mode.
inline constexpr const char* error_response_header =
    "Content-Type: text/plain\nX-Quorin disposition: Error\n\n";
