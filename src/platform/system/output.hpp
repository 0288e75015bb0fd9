#pragma once

#include <string>
#include <string_view>

// Standard output. Documents are built as a text and written in large pieces. Every write is
// checked, so a listing cut short by a full disk never looks complete. When a write fails, the run
// ends with failure_status() and prints the system's error text on standard error.

/// Prevents files that the run opens from taking the place of a closed standard stream. A reader
/// that went away and a file that grew too large become ordinary errors instead of signals.
void prepare_standard_streams();

/// From now on, output is held back until all of it is there, up to 64 MiB; larger documents are
/// written as they grow. A web server passes on what it gets, even if the document is cut short.
void hold_output_back();

/// From now on the output goes to this file instead of standard output. If it cannot be written,
/// the run fails (messages.hpp). All output before must be finished.
void send_output_to(int file);

/// Adds the text to the output.
void print_output(std::string_view text);

/// Adds the text to the output and clears it.
void write_output(std::string& text);

/// The same if the text is large. Call this after each record.
void write_output_when_large(std::string& text);

/// Writes all output that is still held back or buffered.
void finish_output();

/// Whether some output is already written. A signal handler may call this.
bool is_output_begun();
