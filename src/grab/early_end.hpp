#pragma once

/// Settles what ends the grabber early, whatever its parent made of the signals: a shortage of
/// memory with a message, TERM, INT and HUP as they do by default. Its draft goes first. Signals of
/// the terminal that the parent has ignored stay so. Its children are waited for, and alarms bite.
void prepare_for_early_end();
