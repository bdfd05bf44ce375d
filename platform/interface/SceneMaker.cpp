#include "platform/interface/SceneMaker.h"

#include "platform/interface/InterfaceInstance.h"
#include "platform/interface/RuntimeAttributes.h"
#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/UIView.h"

std::shared_ptr<UIViewController> makeSceneController(const InterfaceScene& scene, const InterfaceDocument& document,
                                                      InterfaceReport& report) {
    InterfaceInstance instance(document, report);
    const std::shared_ptr<NSObject> object = instance.make(*scene.controller);
    auto controller = std::dynamic_pointer_cast<UIViewController>(object);
    if (controller) {
        setRuntimeAttributes(*scene.controller, controller, document, report);
        controller->awakeFromNib();
    } else if (object) {
        report.error(*scene.controller, classNameOf(*object) + " is no controller");
    }
    return controller;
}

std::shared_ptr<UIView> makeSceneView(const InterfaceScene& scene, const std::shared_ptr<UIViewController>& controller,
                                      const InterfaceDocument& document, InterfaceReport& report) {
    InterfaceInstance instance(document, report);
    instance.adopt(*scene.controller, controller);
    const InterfaceElement* element = scene.controller->keyed("view");
    std::shared_ptr<UIView> view;
    if (element != nullptr) {
        view = std::dynamic_pointer_cast<UIView>(instance.make(*element));
    }
    if (!view) {
        view = std::make_shared<UIView>();
    }
    for (const InterfaceElement& object : scene.objects->children) {
        if (object.name == "placeholder" || object.name == "exit") {
            instance.adopt(object, nullptr);
        } else if (&object != scene.controller) {
            static_cast<void>(instance.make(object));
        }
    }
    instance.connect();
    instance.awaken();
    return view;
}
