#pragma once
// --check and --pack: the demo of the current directory read through without playing
// it (config.txt, main.txt and every script, key file, material, picture and music
// file they name), collecting every error and every file named.
#include <cstddef>
#include <string>

#include "script/ScriptCheck.hpp"

namespace vz {

ScriptCheck checkDemo();
// Each error once on standard error; returns how many were said.
std::size_t printErrors(const ScriptCheck& check);

// --check: every error on standard error, each as "vzplayer: FILE:LINE: MESSAGE", then
// a count; the exit status: 1 when there was an error, else 0.
int runCheck();

// --pack: a zip archive `output` that plays like the demo directory `directory`:
// config.txt first, then every file the demo names; files left out are listed. Refuses
// an existing `output` unless `force`, and a demo with errors. Returns the exit status.
int packDemo(const std::string& directory, const std::string& output, bool force);

}  // namespace vz
