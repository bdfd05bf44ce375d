#include "platform/graphics/CGAffineTransform.h"

CGAffineTransform CGAffineTransform::then(const CGAffineTransform& outer) const {
    const CGPoint origin = outer.apply({tx, ty});
    return {outer.a * a + outer.c * b,
            outer.b * a + outer.d * b,
            outer.a * c + outer.c * d,
            outer.b * c + outer.d * d,
            origin.x,
            origin.y};
}
