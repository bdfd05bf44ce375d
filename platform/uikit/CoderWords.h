#pragma once

#include "platform/foundation/NSParagraphStyle.h"
#include "platform/runtime/NSCoder.h"

/// The text alignment that an interface file gives; natural when it gives none.
[[nodiscard]] inline NSTextAlignment decodedTextAlignment(const NSCoder& coder) {
    return coder
        .choice<NSTextAlignment>("textAlignment", {{"natural", NSTextAlignment::natural},
                                                   {"left", NSTextAlignment::left},
                                                   {"center", NSTextAlignment::center},
                                                   {"right", NSTextAlignment::right},
                                                   {"justified", NSTextAlignment::justified}})
        .value_or(NSTextAlignment::natural);
}
