#pragma once

#include "simulator/check/TolerantJSON.h"

/// Looks through one list that was read tolerantly: the keys and values of every section and item, and what a person
/// would want to know of titles and icons. Needs the main bundle, whose catalogue has the icons.
void checkList(const TolerantValue& root, const TextPlaces& places, Slips& slips);
