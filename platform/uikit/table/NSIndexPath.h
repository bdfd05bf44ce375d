#pragma once

#include <compare>

/// A row of a table: its section and its place there, both from 0.
struct NSIndexPath {
    int section = 0;
    int row = 0;

    friend bool operator==(const NSIndexPath&, const NSIndexPath&) = default;
    friend auto operator<=>(const NSIndexPath&, const NSIndexPath&) = default;
};
