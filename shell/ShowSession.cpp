#include "shell/ShowSession.hpp"

#include <algorithm>

#include "core/Layer.hpp"
#include "core/LayerManager.hpp"
#include "engine3d/EngineSettings.hpp"
#include "script/Repository.hpp"
#include "shell/Config.hpp"

namespace vz {

namespace {

// Black surface first: effects that read "screen" before drawing see what a first
// playing sees.
std::uint32_t* blackened(const Config& config, std::uint32_t* memory) {
    std::fill_n(memory,
                static_cast<std::size_t>(config.hardwareWidth) * static_cast<std::size_t>(config.hardwareHeight), 0u);
    return memory;
}

std::unique_ptr<Symbol> screenView(const Config& config, std::uint32_t* memory) {
    auto screen = std::make_unique<Layer32bpp>(
        config.hardwareWidth, config.windowHeight,
        memory + static_cast<std::size_t>(config.topOffset) * static_cast<std::size_t>(config.hardwareWidth));
    return std::make_unique<Symbol>(std::move(screen));
}

// The engine-wide settings config.txt decides, in place before the timeline reads its
// first line.
Show& configured(Show& show, const Config& config) {
    show.settings<EngineSettings>().lowQuality = config.lowQuality;
    return show;
}

Layer32bpp& addScreen(Show& show, std::unique_ptr<Symbol> symbol) {
    // Scripts refer to the display as "screen".
    show.repository.add(std::move(symbol), "screen");
    return show.repository.aquireAs<Layer32bpp>("screen");
}

}  // namespace

ShowSession::ShowSession(const Config& config, std::uint32_t* memory)
    : sequencer("main.txt", configured(show, config)), screen(addScreen(show, screenView(config, blackened(config, memory)))) {}

void renewSlotPools(const Config& config) {
    LayerManager::install(nullptr);
    LayerManager::install(
        std::make_unique<LayerManager>(config.smallSlotCount, config.screenSlotCount,
                                       static_cast<std::int64_t>(config.windowHeight) * config.hardwareWidth));
}

}  // namespace vz
