#include "platform/interface/NibMaker.h"

#include "platform/interface/InterfaceInstance.h"

std::vector<std::shared_ptr<NSObject>> makeNibObjects(const std::shared_ptr<NSObject>& owner,
                                                      const InterfaceDocument& document, InterfaceReport& report) {
    InterfaceInstance instance(document, report);
    std::vector<std::shared_ptr<NSObject>> objects;
    for (const InterfaceElement& element : document.objects()->children) {
        if (element.name == "placeholder") {
            const bool isOwner = element.value("placeholderIdentifier") == "IBFilesOwner";
            instance.adopt(element, isOwner ? owner : nullptr);
        } else if (std::shared_ptr<NSObject> object = instance.make(element)) {
            objects.push_back(std::move(object));
        }
    }
    instance.connect();
    instance.awaken();
    return objects;
}
