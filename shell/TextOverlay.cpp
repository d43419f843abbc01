#include "shell/TextOverlay.hpp"

#include <algorithm>

#include "assets/ImageLoader.hpp"
#include "core/Layer.hpp"
#include "effects/sprites/TextDrawing.hpp"

namespace vz {

TextOverlay& TextOverlay::instance() {
    static TextOverlay* overlay = new TextOverlay();  // lives until the process ends
    return *overlay;
}

void TextOverlay::clear() {
    for (int i = 0; i < lineCount; ++i) {
        lines_[i][0] = '\0';
        lengths_[i] = 0;
    }
    current_ = 0;
}

void TextOverlay::reset() {
    clear();
    font_.reset();
}

void TextOverlay::write(const std::string& text) {
    auto& line = lines_[current_];
    int& length = lengths_[current_];
    int room = lineLength - 1 - length;
    int n = std::min(room, static_cast<int>(text.size()));
    std::copy_n(text.data(), n, line.data() + length);
    length += n;
    line[length] = '\0';
}

void TextOverlay::newLine() {
    if (current_ < lineCount - 1) ++current_;
}

void TextOverlay::draw(Layer32bpp& target) {
    if (!font_) font_ = ImageLoader::LoadLayer32bpp(fontFile);
    // The overlay's font record: scale 1, an extra 8 pixels between glyphs, "normal".
    TextStyle style;
    style.x = -0.8f;
    style.scaleX = 1.0f;
    style.scaleY = 1.0f;
    style.spacing = 8.0f;
    style.rendu = 32;
    for (int i = 0; i < lineCount; ++i) {
        style.y = static_cast<float>(i) * 0.2f - 0.8f;
        drawText(target, *font_, style, lines_[i].data());
    }
}

}  // namespace vz
