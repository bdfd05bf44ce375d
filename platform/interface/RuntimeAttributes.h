#pragma once

#include "platform/interface/InterfaceDocument.h"
#include "platform/interface/InterfaceReport.h"
#include "platform/runtime/NSObject.h"

#include <memory>

/// Sets the keys that an element's <userDefinedRuntimeAttributes> give its object, in file order. An unknown key or a
/// value of the wrong type is reported.
void setRuntimeAttributes(const InterfaceElement& element, const std::shared_ptr<NSObject>& object,
                          const InterfaceDocument& document, InterfaceReport& report);
