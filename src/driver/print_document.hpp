#pragma once

#include "driver/report_window.hpp"
#include "schedule/schedule.hpp"

/// Prints the document of the run, in CGI mode behind its Content-Type header (RFC 3875).
void print_document(Schedule& schedule, const ReportWindow& window);
