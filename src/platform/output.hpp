#pragma once

#include <string>
#include <string_view>

// Standard output. Documents are composed into a text and handed over in large pieces; every
// write is checked, so that a listing cut short by a full disk never passes for a whole one. When
// a write fails the run ends with status 1 and the system's error text on standard error. Nothing
// here takes memory.

/// Keeps files that the run opens from taking the place of a closed standard stream, and makes a
/// reader that went away an error like any other instead of a signal.
void prepare_standard_streams();

/// Hands the text over.
void print_output(std::string_view text);

/// Hands the text over and clears it.
void write_output(std::string& text);

/// The same once the text has grown large; to be called after each record.
void write_output_when_large(std::string& text);

/// Writes out what is still buffered.
void finish_output();

/// Forgets what was handed over. False when some of it is already written.
bool take_back_output();
