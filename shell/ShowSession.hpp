#pragma once
// One playing of the demo from its start: the show's resources, the timeline reading
// "main.txt", and the "screen" layer laid over the band of the display surface. The
// player makes a fresh one when a seek goes backwards or the demo's files change, since
// the timeline can only be read forward.
#include <cstdint>
#include <memory>

#include "script/Sequencer.hpp"
#include "script/Show.hpp"

namespace vz {

struct Config;
class Layer32bpp;

class ShowSession {
public:
    // Blacks out the whole surface (`memory`, hardware width x height pixels), opens
    // "main.txt" and adds the "screen" view to the show's repository.
    ShowSession(const Config& config, std::uint32_t* memory);

    Show show;
    Sequencer sequencer;
    Layer32bpp& screen;
};

// Slot pools as fresh as at start-up, for a show started afresh: the pools' memory is
// zeroed again and slots are handed out in the same order. Only while no layer holds a slot.
void renewSlotPools(const Config& config);

}  // namespace vz
