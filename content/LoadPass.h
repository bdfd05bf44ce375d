#pragma once

#include "content/ModeSection.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// From content key to the sections of that option. A key whose file is missing or bad has no entry.
using ContentMap = std::map<std::string, std::vector<ModeSection>>;

/// Takes over what a load pass has read.
class ContentMapReceiver {
public:
    virtual ~ContentMapReceiver() = default;

    /// Called once, on the main queue.
    virtual void applyContentMap(ContentMap contentMap) = 0;
};

/// The sections of every option whose file can be read, by content key. Any thread.
[[nodiscard]] ContentMap readContentMap();

/// Reads the content files of all options on the global queue and hands the finished map to the receiver. Returns at
/// once. A receiver that is gone before the pass runs loads nothing; one that is there is kept alive until it has the
/// map, and is released on the main thread. Main thread.
void loadAllModeSections(const std::weak_ptr<ContentMapReceiver>& receiver);
