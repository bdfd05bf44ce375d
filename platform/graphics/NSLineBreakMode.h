#pragma once

/// What happens to text that does not fit its width; the numbers are those of archives.
enum class NSLineBreakMode {
    byWordWrapping = 0,
    byCharWrapping = 1,
    byClipping = 2,
    byTruncatingTail = 4,
};
