#include "tests/runtime/RuntimeClasses.h"

namespace {

void setStroke(Base& base, double value) {
    base.tag = static_cast<int>(value) * 10;
}

} // namespace

void registerTestClasses() {
    ClassBuilder<Part>("Part", "NSObject").property("radius", &Part::setRadius);
    ClassBuilder<Base>("Base", "NSObject")
        .outlet("panel", &Base::panel)
        .outlet("delegate", &Base::setDelegate)
        .property("title", &Base::setTitle)
        .property("hidden", &Base::setHidden)
        .property("tag", &Base::setTag)
        .property("held", &Base::setHeld)
        .property("stroke", &setStroke)
        .object("part", &Base::part)
        .action("tapped:", &Base::tapped)
        .action("closed", &Base::closed);
    ClassBuilder<Derived>("Derived", "Base").action("tapped:", &Derived::doubled);
}
