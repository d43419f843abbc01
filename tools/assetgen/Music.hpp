#pragma once
// The sample demo's music, composed and synthesised here.
#include "tools/writers/ModWriter.hpp"

namespace vz::assetgen {

using writers::ModCell;
using writers::ModPattern;
using writers::ModSample;
using writers::ModSong;
using writers::notePeriod;

// Every pattern starts by setting these, so playing from any order keeps the timing:
// one row = 0.02 s x speed = 0.12 s, one 64-row pattern = 7.68 s.
constexpr int songSpeed = 6;
constexpr int songTempo = 125;

ModSong composeSampleSong();

}  // namespace vz::assetgen
