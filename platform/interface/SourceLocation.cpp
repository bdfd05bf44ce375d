#include "platform/interface/SourceLocation.h"

#include "platform/runtime/AssociatedObjects.h"

namespace {

const char locationKey = 0; // only its address counts

/// Rides on the located object; all objects of a file share the file's name.
struct LocationMark : NSObject {
    std::shared_ptr<const std::string> file;
    TextPlace place;
};

} // namespace

std::optional<SourceLocation> sourceLocationOf(const NSObject& object) {
    const auto mark = std::dynamic_pointer_cast<LocationMark>(objc_getAssociatedObject(object, &locationKey));
    return mark ? std::optional(SourceLocation{*mark->file, mark->place}) : std::nullopt;
}

void setSourceLocation(NSObject& object, const std::shared_ptr<const std::string>& file, TextPlace place) {
    const auto mark = std::make_shared<LocationMark>();
    mark->file = file;
    mark->place = place;
    objc_setAssociatedObject(object, &locationKey, mark, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
}
