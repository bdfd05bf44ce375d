#include "tests/runtime/RuntimeClasses.h"

namespace {

void setStroke(Base& base, double value) {
    base.tag = static_cast<int>(value) * 10;
}

} // namespace

void registerTestClasses() {
    ClassBuilder<Colour>("Colour", "NSObject");
    ClassBuilder<Part>("Part", "NSObject").property("radius", &Part::setRadius);
    ClassBuilder<Base>("Base", "NSObject")
        .madeByCoder()
        .outlet("panel", &Base::panel)
        .outlet("delegate", &Base::setDelegate)
        .property("title", &Base::setTitle)
        .property("hidden", &Base::setHidden)
        .property("tag", &Base::setTag)
        .property("colour", &Base::setColour)
        .property("frame", &Base::setFrame)
        .property("stroke", &setStroke)
        .object("part", &Base::part)
        .action("tapped:", &Base::tapped)
        .action("closed", &Base::closed);
    ClassBuilder<Derived>("Derived", "Base").action("tapped:", &Derived::doubled);
}
