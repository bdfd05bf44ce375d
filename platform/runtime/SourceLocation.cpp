#include "platform/runtime/SourceLocation.h"

#include "platform/foundation/FatalError.h"
#include "platform/runtime/ClassRegistry.h"

namespace {

const char locationKey = 0; // only its address counts

/// Rides on the located object.
struct LocationMark : NSObject {
    explicit LocationMark(SourceLocation marked) : location(std::move(marked)) {}

    SourceLocation location;
};

} // namespace

const SourceLocation* sourceLocationOf(const NSObject& object) {
    const auto* mark = dynamic_cast<LocationMark*>(objc_getAssociatedObject(object, &locationKey).get());
    return mark == nullptr ? nullptr : &mark->location;
}

void setSourceLocation(NSObject& object, SourceLocation location) {
    objc_setAssociatedObject(object, &locationKey, std::make_shared<LocationMark>(std::move(location)),
                             OBJC_ASSOCIATION_RETAIN);
}

void fatalErrorAt(const NSObject& object, const std::string& message) {
    const std::string name = classNameOf(object);
    const SourceLocation* location = sourceLocationOf(object);
    if (location == nullptr) {
        fatalError(name + ": " + message);
    }
    const std::string what = name + " " + std::string(location->element) + ": " + message;
    fatalError(Finding{Severity::error, *location->file, location->place, what}.describe());
}
