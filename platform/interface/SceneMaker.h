#pragma once

#include "platform/interface/InterfaceDocument.h"
#include "platform/interface/InterfaceReport.h"

#include <memory>

class UIView;
class UIViewController;

/// A new controller of a scene, awakened, without its view; null after an error.
[[nodiscard]] std::shared_ptr<UIViewController>
makeSceneController(const InterfaceScene& scene, const InterfaceDocument& document, InterfaceReport& report);

/// A new view tree for a controller of the scene, connected and awakened.
[[nodiscard]] std::shared_ptr<UIView> makeSceneView(const InterfaceScene& scene,
                                                    const std::shared_ptr<UIViewController>& controller,
                                                    const InterfaceDocument& document, InterfaceReport& report);
