#include "effects/shapes/RingOutline.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/SafeNumbers.hpp"
#include "effects/rendu/BlendOperators.hpp"

namespace vz {

namespace {

// The circle seen with x along the runs and y across them: for the row pass x is the
// target's x, for the column pass the target's y.
struct Pass {
    Layer32bpp& target;
    bool columns;  // runs go down columns
    std::uint32_t& pixel(int along, int across) const {
        return columns ? target.row(along)[across] : target.row(across)[along];
    }
    int alongSize() const { return columns ? target.height : target.width; }
    int acrossSize() const { return columns ? target.width : target.height; }
};

// One pass: every line `across` near enough to the circle, its two runs of pixels where
// |along| > |across| from the centre (the other pass owns the rest, the diagonal going to
// the column pass), so no pixel is drawn twice.
void drawPass(const Pass& pass, double ca, double cb, double r, std::uint32_t colour, int dashes) {
    const double inner = std::max(0.0, r - 1.0), outer = r + 1.0;
    const double halfInv = 1.0 / (2.0 * r), r2 = r * r;
    const double reach = outer * std::numbers::sqrt2 / 2.0 + 1.0;
    const int firstLine = clampToInt(std::floor(cb - reach), 0, pass.acrossSize());
    const int endLine = clampToInt(std::ceil(cb + reach), 0, pass.acrossSize());
    for (int line = firstLine; line < endLine; ++line) {
        const double b = line + 0.5 - cb, b2 = b * b;
        if (!(b2 < outer * outer)) continue;
        const double near = inner * inner > b2 ? std::sqrt(inner * inner - b2) : 0.0;
        const double far = std::sqrt(outer * outer - b2);
        for (const double side : {1.0, -1.0}) {
            if (dashes > 0) {
                // The run's angle round the circle, where it crosses the line.
                const double crossing = r2 > b2 ? std::sqrt(r2 - b2) : 0.0;
                const double a = side * crossing;
                double turns = (pass.columns ? std::atan2(a, b) : std::atan2(b, a)) / (2.0 * std::numbers::pi);
                if (turns < 0) turns += 1.0;
                if (static_cast<int>(turns * 2 * dashes) % 2 != 0) continue;
            }
            const double lo = side > 0 ? ca + near : ca - far, hi = side > 0 ? ca + far : ca - near;
            const int from = clampToInt(std::floor(lo - 0.5), 0, pass.alongSize());
            const int to = clampToInt(std::ceil(hi - 0.5) + 1, 0, pass.alongSize());
            for (int along = from; along < to; ++along) {
                const double a = along + 0.5 - ca;
                // Ties on the diagonal go to the column pass.
                if (pass.columns ? std::fabs(a) < std::fabs(b) : std::fabs(a) <= std::fabs(b)) continue;
                const double coverage = 1.0 - std::fabs(a * a + b2 - r2) * halfInv;
                const int level = static_cast<int>(coverage * 32.0 + 0.5);
                if (level <= 0) continue;
                std::uint32_t& d = pass.pixel(along, line);
                d = blendPixel(std::min(level, 32), colour, d);
            }
        }
    }
}

}  // namespace

void drawRingOutline(Layer32bpp& target, const Round& circle, std::uint32_t colour, int dashes) {
    // Radii from half a pixel to beyond any layer; positions far outside give no lines.
    if (!(circle.radius >= 0.5 && circle.radius < 1e6) || !std::isfinite(circle.x) || !std::isfinite(circle.y)) return;
    drawPass({target, false}, circle.x, circle.y, circle.radius, colour, dashes);
    drawPass({target, true}, circle.y, circle.x, circle.radius, colour, dashes);
}

}  // namespace vz
