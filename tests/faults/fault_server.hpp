#pragma once

/// The fault of one run, in the texts of the environment's FAULT, FAULT_ERRNO and FAULT_REPORT. A
/// null text is one that is not given; without `fault` nothing fails.
struct FaultOfRun {
  const char* fault;
  const char* error;
  const char* report;
};

/// Forks a run for each request that comes through the socket. The two descriptors that are sent
/// along become its standard output and error, and all processes that it starts can be ended with
/// it. Whoever asked is sent the run's process number, and its status when it has ended. Returns in
/// the runs alone: each goes on as the program, with no other descriptor than its standard streams.
/// The process itself ends with the socket.
FaultOfRun serve_runs(int socket);
