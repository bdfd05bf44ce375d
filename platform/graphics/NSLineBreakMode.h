#pragma once

/// What happens to text that does not fit its width; the numbers are those of interface files and archives.
enum class NSLineBreakMode {
    byWordWrapping = 0,
    byCharWrapping = 1,
    byClipping = 2,
    byTruncatingHead = 3,
    byTruncatingTail = 4,
    byTruncatingMiddle = 5,
};
