#pragma once

#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIFont.h"
#include "platform/graphics/UIImage.h"
#include "platform/interface/InterfaceDocument.h"
#include "platform/interface/InterfaceReport.h"

#include <memory>
#include <optional>

/// Colours, fonts, images and geometry as elements describe them. What is written wrongly is reported on the element
/// and then reads as absent.

/// Null where there is no such colour: it is written wrongly, or is named and neither the catalogue nor the document
/// has it. A named colour that the catalogue lacks is looked for among the document's resources.
[[nodiscard]] std::shared_ptr<UIColor> readColor(const InterfaceElement& element, const InterfaceDocument& document,
                                                 InterfaceReport& report);
[[nodiscard]] std::shared_ptr<UIFont> readFont(const InterfaceElement& element, InterfaceReport& report);
/// By the catalogue's name; null, and no error, where the catalogue lacks it.
[[nodiscard]] std::shared_ptr<UIImage> imageFromCatalog(const std::string& name);
/// A number in an attribute; an absent or unreadable one is reported.
[[nodiscard]] std::optional<double> requiredNumber(const InterfaceElement& element, std::string_view attribute,
                                                   InterfaceReport& report);
/// <rect x y width height>
[[nodiscard]] std::optional<CGRect> readRect(const InterfaceElement& element, InterfaceReport& report);
[[nodiscard]] std::optional<CGSize> readSize(const InterfaceElement& element, InterfaceReport& report);
/// <inset minX minY maxX maxY> or <edgeInsets top left bottom right>
[[nodiscard]] std::optional<UIEdgeInsets> readInsets(const InterfaceElement& element, InterfaceReport& report);
