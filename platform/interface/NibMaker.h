#pragma once

#include "platform/interface/InterfaceDocument.h"
#include "platform/interface/InterfaceReport.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <vector>

/// New top-level objects of a nib in file order, connected and awakened. `owner` may be null: connections to and from
/// the file's owner are then left out.
[[nodiscard]] std::vector<std::shared_ptr<NSObject>>
makeNibObjects(const std::shared_ptr<NSObject>& owner, const InterfaceDocument& document, InterfaceReport& report);
