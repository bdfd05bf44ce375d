#pragma once

#include "platform/foundation/Finding.h"

#include <vector>

/// What is wrong with the data of the main bundle.
struct BundleFindings {
    Findings all;
    bool canLaunch = true; // false: an interface document would stop the extension
};

/// Reads every interface document, the asset catalogue and every content file of the main bundle.
[[nodiscard]] BundleFindings checkBundleData();
