#pragma once
// The player's entry function: start-up in its fixed order, the frame loop, shut-down.
#include "shell/CommandLine.hpp"

namespace vz {

class Console;

// Plays the demo of the current working directory on `console` (a window or headless).
// Returns the exit status: 0 after a normal end; 1 after a fatal error in a headless
// run or a display failure.
int playDemo(const Options& options, Console& console);

// What Space writes to the log: a line end, then "actualTime = " and t cut towards zero
// to tenths in double precision (0.7f is 0.69999998... and logs 0.6).
void logActualTime(float t);

}  // namespace vz
