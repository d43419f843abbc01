#include "effects/filters/Highlight.hpp"

#include <algorithm>

#include "effects/filters/ScaledDraw.hpp"

namespace vz {

void drawHighlights(Layer32bpp& target, const Layer32bpp& star, int rendu, std::vector<StarHit>& hits) {
    const int skip = std::max(1, star.width / 2);
    hits.clear();
    for (int y = 0; y < target.height && hits.size() < maxStars; ++y) {
        const std::uint32_t* row = target.row(y);
        for (int x = 0; x < target.width && hits.size() < maxStars;) {
            if ((row[x] & 0xFFFFFF) == 0xFFFFFF) {
                hits.push_back({x, y});
                x += skip;
            } else {
                ++x;
            }
        }
    }
    for (const StarHit& hit : hits)
        drawAt(target, star, hit.x - star.width / 2, hit.y - star.height / 2, rendu, BlackPixels::transparent);
}

}  // namespace vz
