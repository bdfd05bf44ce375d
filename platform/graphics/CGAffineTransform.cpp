#include "platform/graphics/CGAffineTransform.h"

#include <cmath>

CGAffineTransform CGAffineTransform::rotation(CGFloat radians) {
    const CGFloat cosine = std::cos(radians);
    const CGFloat sine = std::sin(radians);
    return {cosine, sine, -sine, cosine, 0, 0};
}

CGAffineTransform CGAffineTransform::then(const CGAffineTransform& outer) const {
    const CGPoint origin = outer.apply({tx, ty});
    return {outer.a * a + outer.c * b,
            outer.b * a + outer.d * b,
            outer.a * c + outer.c * d,
            outer.b * c + outer.d * d,
            origin.x,
            origin.y};
}
