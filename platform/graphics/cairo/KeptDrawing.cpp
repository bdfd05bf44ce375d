#include "platform/graphics/cairo/KeptDrawing.h"

#include "platform/graphics/cairo/CairoCanvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

bool KeptDrawing::isContinuedBy(const std::vector<PathOperation>& operations, const Place& place) const {
    return m_picture.has_value() && place == m_place && operations.size() >= m_operations.size() &&
           std::equal(m_operations.begin(), m_operations.end() - 1, operations.begin());
}

std::optional<CGRect> KeptDrawing::changedBy(const std::vector<PathOperation>& operations, const Place& place) const {
    if (!isContinuedBy(operations, place)) {
        return std::nullopt;
    }
    const std::size_t last = m_operations.size() - 1;
    const std::size_t first = operations[last] == m_operations[last] ? last + 1 : last;
    CGRect changed = first == last ? m_operations[last].bounds() : CGRect{};
    for (std::size_t i = first; i < operations.size(); ++i) {
        changed = changed.unionWith(operations[i].bounds());
    }
    return std::isfinite(changed.size.width + changed.size.height) ? std::optional<CGRect>(changed) : std::nullopt;
}

/// The antialiasing of a path can depend on where it is cut, so one that the clip cuts is drawn apart.
void KeptDrawing::drawWhole(CairoCanvas& canvas, const PathOperation& operation, const PixelRect& area) const {
    const PixelRect reached = canvas.pixelsOf(operation.bounds()).intersection(area);
    if (canvas.clipPixels().contains(reached)) {
        operation.drawOn(canvas);
        return;
    }
    Bitmap piece(reached.width, reached.height);
    CairoCanvas whole(piece, canvas, reached);
    whole.replacePixels(*m_picture, area);
    operation.drawOn(whole);
    canvas.replacePixels(piece, reached);
}

void KeptDrawing::draw(CairoCanvas& canvas, const CGRect& rect, const Place& place, const RGBA& ground,
                       std::vector<PathOperation> operations) {
    const PixelRect area = canvas.wholePixelsOf(rect).value_or(PixelRect{}).intersection(place.visible);
    const bool continues = ground == m_ground && isContinuedBy(operations, place);
    if (area.isEmpty() || (!continues && !canvas.clipPixels().contains(area))) {
        m_picture.reset(); // to be begun when all of it is painted
        for (const PathOperation& operation : operations) {
            operation.drawOn(canvas);
        }
        return;
    }
    std::size_t known = continues ? m_operations.size() - 1 : 0;
    if (!continues) {
        m_picture.emplace(area.width, area.height);
        CairoCanvas(*m_picture, canvas, area).fillRect(rect, ground);
    }
    CairoCanvas picture(*m_picture, canvas, area);
    for (; known + 1 < operations.size(); ++known) {
        operations[known].drawOn(picture);
    }
    canvas.replacePixels(*m_picture, area);
    drawWhole(canvas, operations.back(), area);
    m_operations = std::move(operations);
    m_place = place;
    m_ground = ground;
}
