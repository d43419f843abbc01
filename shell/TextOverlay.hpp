#pragma once
// The text overlay: 25 lines of 80 characters drawn over the "screen" layer with the
// font picture "police.pcx". The frame counter writes its line here when COUNTERS is on.
#include <array>
#include <memory>
#include <string>

namespace vz {

class Layer32bpp;

class TextOverlay {
public:
    static constexpr int lineCount = 25;
    static constexpr int lineLength = 80;
    static constexpr const char* fontFile = "police.pcx";

    // The process-wide overlay, created on first use.
    static TextOverlay& instance();

    // Empties every line and goes back to the first one.
    void clear();
    // A fresh overlay for a new show: lines emptied and the font to be loaded again.
    void reset();
    // Appends to the current line (cut at 79 characters, like a full text buffer).
    void write(const std::string& text);
    // Moves to the next line (stays on the last one).
    void newLine();
    const char* line(int index) const { return lines_[index].data(); }
    int currentLine() const { return current_; }

    // Draws every line onto the layer; the font is loaded on the first draw.
    void draw(Layer32bpp& target);

private:
    TextOverlay() = default;
    std::array<std::array<char, lineLength>, lineCount> lines_{};
    std::array<int, lineCount> lengths_{};
    int current_ = 0;
    std::unique_ptr<Layer32bpp> font_;
};

}  // namespace vz
