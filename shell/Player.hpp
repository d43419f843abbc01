#pragma once
// The player's entry function: start-up in its fixed order, the frame loop, shut-down.
#include "shell/CommandLine.hpp"

namespace vz {

class Console;

// Plays the demo of the current working directory on `console` (a window or headless).
// Returns the exit status: 0 after a normal end; 1 after a fatal error in a headless
// run or a display failure.
int playDemo(const Options& options, Console& console);

}  // namespace vz
