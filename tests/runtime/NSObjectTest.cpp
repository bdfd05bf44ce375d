#include "platform/runtime/NSObject.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string key = "same text";
const std::string otherKey = "same text";

void retain(NSObject& object, const std::shared_ptr<NSObject>& value, const std::string& under = key) {
    objc_setAssociatedObject(object, &under, value, OBJC_ASSOCIATION_RETAIN);
}

} // namespace

TEST(AssociatedObjects, AreFoundByTheAddressOfTheKeyReplacedAndRemoved) {
    auto object = std::make_shared<NSObject>();
    auto value = std::make_shared<NSObject>();
    const std::weak_ptr<NSObject> observed = value;
    retain(*object, std::make_shared<NSObject>());
    retain(*object, value);
    EXPECT_EQ(objc_getAssociatedObject(*object, &key), value);
    EXPECT_EQ(objc_getAssociatedObject(*object, &otherKey), nullptr);
    retain(*object, value, otherKey);
    retain(*object, nullptr);
    EXPECT_EQ(objc_getAssociatedObject(*object, &key), nullptr);
    value.reset();
    EXPECT_FALSE(observed.expired());
    object.reset();
    EXPECT_TRUE(observed.expired());
}

TEST(AssociatedObjects, MayComeBackWhileTheyAreReplaced) {
    const auto object = std::make_shared<NSObject>();
    const auto last = std::make_shared<NSObject>();
    retain(*object, std::shared_ptr<NSObject>(std::make_unique<NSObject>().release(), [&](NSObject* first) {
        std::default_delete<NSObject>()(first);
        retain(*object, last, otherKey);
    }));
    retain(*object, nullptr);
    EXPECT_EQ(objc_getAssociatedObject(*object, &otherKey), last);
}
