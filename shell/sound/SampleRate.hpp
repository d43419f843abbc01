#pragma once

namespace vz {

// Every sample the player produces: 44100 stereo frames per second, 16 bits each.
constexpr int sampleRate = 44100;
constexpr int channelCount = 2;

}  // namespace vz
