#pragma once
// The script's music components. Their constructors read the parameters from the
// script line and never use the Sequencer, so any reference may be passed.
#include <string>

#include "script/Component.hpp"

namespace vz {

// "filename startPosition timeOffset": on its first run, plays the module from the
// start of order startPosition, and the show's time becomes timeOffset.
class PlayModule : public Component {
public:
    PlayModule(ComponentContext& in);
    void run(float localTime) override;

private:
    std::string fileName_;
    int startPosition_ = 0;
    float timeOffset_ = 0.0f;
    bool started_ = false;
};

// "filename startTime timeOffset": on its first run, plays the MP3 from startTime
// seconds (whole milliseconds), and the show's time becomes startTime + timeOffset.
class PlayMp3 : public Component {
public:
    PlayMp3(ComponentContext& in);
    void run(float localTime) override;

private:
    std::string fileName_;
    int startMs_ = 0;
    float timeOffset_ = 0.0f;
    bool started_ = false;
};

// "(float)begin (float)end": every run sets the current module's volume to
// (end - begin) × localTime + begin, capped at end and at 1.0 (1.0 = 255). Streams
// are not faded. The cap at end means a fade from 1 to 0 is silent at once.
class FadeVolume : public Component {
public:
    FadeVolume(ComponentContext& in);
    void run(float localTime) override;

private:
    float begin_ = 0.0f;
    float end_ = 0.0f;
};

}  // namespace vz
