#pragma once

#include "platform/interface/InterfaceReport.h"
#include "platform/runtime/ClassRegistry.h"

/// The class that an element asks for: its custom class, else the standard one of its kind. An unknown element or
/// class, or one that files cannot make, is reported; then null.
[[nodiscard]] const ObjectClass* classToMake(const InterfaceElement& element, InterfaceReport& report);
