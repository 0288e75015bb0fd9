#pragma once

#include <string>
#include <string_view>

// Standard output. Documents are composed into a text and handed over in large pieces; every
// write is checked, so that a listing cut short by a full disk never passes for a whole one. When
// a write fails the run ends with failure_status() and the system's error text on standard error.

/// Keeps files that the run opens from taking the place of a closed standard stream, and makes a
/// reader that went away and a file that grew too large errors like any other instead of signals.
void prepare_standard_streams();

/// From now on writes nothing before all is handed over, up to 64 MiB: what goes further goes out
/// as it comes. A web server passes on what it has got, and takes a part for the whole.
void hold_output_back();

/// Hands the text over.
void print_output(std::string_view text);

/// Hands the text over and clears it.
void write_output(std::string& text);

/// The same once the text has grown large; to be called after each record.
void write_output_when_large(std::string& text);

/// Writes out what is still held back or buffered.
void finish_output();

/// Whether some of it is already written. A handler of signals may call this.
bool is_output_begun();
