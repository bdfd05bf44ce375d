#pragma once

#include "platform/interface/InterfaceDocument.h"
#include "platform/interface/InterfaceObjects.h"
#include "platform/interface/InterfaceReport.h"

/// The active constraint that an element of `owner` describes; null after an error. Its identifier tells the element's
/// identifier, label or id, with file and line.
[[nodiscard]] std::shared_ptr<NSLayoutConstraint>
readConstraint(const InterfaceElement& element, const std::shared_ptr<UIView>& owner, const InterfaceObjects& objects,
               const InterfaceDocument& document, InterfaceReport& report);
