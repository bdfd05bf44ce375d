#include "platform/runtime/AssociatedObjects.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

class Held : public NSObject {
public:
    ~Held() override {
        if (atEnd) {
            atEnd();
        }
    }
    std::function<void()> atEnd;
};

const std::string key = "same text";
const std::string otherKey = "same text";

} // namespace

TEST(AssociatedObjects, AreFoundByTheAddressOfTheKey) {
    const auto object = std::make_shared<NSObject>();
    const auto value = std::make_shared<NSObject>();
    objc_setAssociatedObject(*object, &key, value, OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(objc_getAssociatedObject(*object, &key), value);
    EXPECT_EQ(objc_getAssociatedObject(*object, &otherKey), nullptr);
    EXPECT_EQ(objc_getAssociatedObject(*value, &key), nullptr);
}

TEST(AssociatedObjects, LiveAsLongAsTheObjectThatRetainsThem) {
    auto object = std::make_shared<NSObject>();
    auto value = std::make_shared<NSObject>();
    const std::weak_ptr<NSObject> observed = value;
    objc_setAssociatedObject(*object, &key, std::move(value), OBJC_ASSOCIATION_RETAIN);
    value.reset();
    EXPECT_FALSE(observed.expired());
    object.reset();
    EXPECT_TRUE(observed.expired());
}

TEST(AssociatedObjects, AreNotKeptByAnAssignment) {
    const auto object = std::make_shared<NSObject>();
    auto value = std::make_shared<NSObject>();
    objc_setAssociatedObject(*object, &key, value, OBJC_ASSOCIATION_ASSIGN);
    EXPECT_EQ(objc_getAssociatedObject(*object, &key), value);
    value.reset();
    EXPECT_EQ(objc_getAssociatedObject(*object, &key), nullptr);
}

TEST(AssociatedObjects, AreReplacedAndRemoved) {
    const auto object = std::make_shared<NSObject>();
    const auto second = std::make_shared<NSObject>();
    objc_setAssociatedObject(*object, &key, std::make_shared<NSObject>(), OBJC_ASSOCIATION_RETAIN);
    objc_setAssociatedObject(*object, &key, second, OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(objc_getAssociatedObject(*object, &key), second);
    objc_setAssociatedObject(*object, &key, nullptr, OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(objc_getAssociatedObject(*object, &key), nullptr);
}

TEST(AssociatedObjects, MayComeBackWhileTheyAreReplaced) {
    const auto object = std::make_shared<NSObject>();
    auto first = std::make_shared<Held>();
    const auto last = std::make_shared<NSObject>();
    first->atEnd = [&] { objc_setAssociatedObject(*object, &otherKey, last, OBJC_ASSOCIATION_RETAIN); };
    objc_setAssociatedObject(*object, &key, std::exchange(first, nullptr), OBJC_ASSOCIATION_RETAIN);
    objc_setAssociatedObject(*object, &key, std::make_shared<NSObject>(), OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(objc_getAssociatedObject(*object, &otherKey), last);
}
