#include "shell/display/headless/HeadlessConsole.hpp"

#include <algorithm>

namespace vz {

void HeadlessConsole::open(const std::string& title, int, int, const Format&, int) {
    title_ = title;
    opened_ = true;
}

void HeadlessConsole::present(const std::uint32_t* pixels, int width, int height) {
    frame_.assign(pixels, pixels + static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

bool HeadlessConsole::key() { return !keys_.empty() && keys_.front().frame <= updates_; }

Key HeadlessConsole::read() {
    Key k = keys_.front().key;
    keys_.pop_front();
    return k;
}

std::unique_ptr<Console> makeHeadlessConsole() { return std::make_unique<HeadlessConsole>(); }

}  // namespace vz
