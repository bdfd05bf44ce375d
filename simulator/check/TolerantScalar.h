#pragma once

#include "simulator/check/TextCursor.h"
#include "simulator/check/TolerantJSON.h"

/// Reads one text, number or word, which must stand at the cursor: the part of TolerantJSON that knows about quotes.
[[nodiscard]] TolerantValue readScalar(TextCursor& cursor);
/// The same for a key, which may lack its quotes, or be missing.
[[nodiscard]] TolerantValue readKey(TextCursor& cursor);
