#include "platform/runtime/ClassRegistry.h"

#include "tests/runtime/RuntimeClasses.h"

#include <gtest/gtest.h>

namespace {

class ClassRegistryTest : public testing::Test {
protected:
    ClassRegistryTest() { registerTestClasses(); }

    static const ObjectClass& classNamed(const char* name) { return *ClassRegistry::shared().find(name); }
    static Acceptance set(NSObject& object, const char* key, const Value& value) {
        return (*classNamed("Derived").property(key))(object, value);
    }
};

} // namespace

TEST_F(ClassRegistryTest, TakesAnObjectForItsClassOrTheNearestBaseThatIsRegistered) {
    class Plain : public NSObject {};
    class Late : public Unregistered {};
    class Latest : public Late {};
    EXPECT_EQ(classNameOf(*std::make_shared<Base>()), "Base");
    EXPECT_EQ(classNameOf(*std::make_shared<Unregistered>()), "Derived");
    EXPECT_EQ(classNameOf(*std::make_shared<Latest>()), "Derived");
    EXPECT_TRUE(canBeAskedForSelectors(*std::make_shared<Latest>()));
    ClassBuilder<Late>("Late", "Derived");
    EXPECT_EQ(classNameOf(*std::make_shared<Latest>()), "Late") << "registered after it was asked for";
    EXPECT_EQ(classNameOf(*std::make_shared<Plain>()), "NSObject");
    EXPECT_FALSE(canBeAskedForSelectors(*std::make_shared<Plain>()));
    EXPECT_EQ(ClassRegistry::shared().find("Nothing"), nullptr);
}

TEST_F(ClassRegistryTest, LooksThroughSuperclasses) {
    const ObjectClass& derived = classNamed("Derived");
    EXPECT_NE(derived.outlet("panel"), nullptr);
    EXPECT_EQ(derived.action("Closed"), nullptr);
    EXPECT_EQ(derived.property("radius"), nullptr);
    EXPECT_EQ(derived.outletNames(), (std::vector<std::string>{"delegate", "panel"}));
    registerTestClasses(); // a second time is harmless
    EXPECT_EQ(derived.actionNames(), (std::vector<std::string>{"closed", "tapped:"}));
}

TEST_F(ClassRegistryTest, SetsPropertiesOfTheRightTypeOnly) {
    const auto object = std::make_shared<Derived>();
    EXPECT_EQ(set(*object, "title", std::string("Vibes")), Acceptance::accepted);
    EXPECT_EQ(set(*object, "hidden", true), Acceptance::accepted);
    EXPECT_EQ(set(*object, "tag", 4.0), Acceptance::accepted);
    EXPECT_EQ(set(*object, "title", 1.0), Acceptance::wrongType);
    EXPECT_EQ(set(*object, "hidden", 1.0), Acceptance::wrongType);
    EXPECT_EQ(set(*object, "tag", std::string("4")), Acceptance::wrongType);
    EXPECT_EQ(object->title, "Vibes");
    EXPECT_TRUE(object->hidden);
    EXPECT_EQ(object->tag, 4);
    EXPECT_EQ(set(*object, "stroke", 2.0), Acceptance::accepted); // a free function
    EXPECT_EQ(object->tag, 20);
}

TEST_F(ClassRegistryTest, SetsObjectsOfTheRightClassAndNil) {
    const auto object = std::make_shared<Derived>();
    const auto part = std::make_shared<Part>();
    EXPECT_EQ(set(*object, "held", std::shared_ptr<NSObject>(part)), Acceptance::accepted);
    EXPECT_EQ(set(*object, "held", std::shared_ptr<NSObject>(object)), Acceptance::wrongType);
    EXPECT_EQ(object->held, part);
    EXPECT_EQ(set(*object, "held", std::shared_ptr<NSObject>()), Acceptance::accepted);
    EXPECT_EQ(object->held, nullptr);
}

TEST_F(ClassRegistryTest, ReachesPartsOfAnObjectByName) {
    const auto object = std::make_shared<Derived>();
    const auto part = (*classNamed("Derived").object("part"))(*object);
    EXPECT_EQ((*classNamed("Part").property("radius"))(*part, 8.0), Acceptance::accepted);
    EXPECT_EQ(object->part()->radius, 8);
}

TEST_F(ClassRegistryTest, ConnectsOutletsWeaklyAndOnlyToTheirClass) {
    const auto object = std::make_shared<Derived>();
    auto part = std::make_shared<Part>();
    const auto& connect = *classNamed("Derived").outlet("panel");
    EXPECT_EQ(connect(*object, object), Acceptance::wrongType);
    EXPECT_EQ(connect(*object, part), Acceptance::accepted);
    EXPECT_TRUE(object->panel.is(*part));
    EXPECT_EQ((*classNamed("Derived").outlet("delegate"))(*object, part), Acceptance::accepted);
    EXPECT_EQ(object->delegate.lock(), part);
    part.reset();
    EXPECT_EQ(object->panel.get(), nullptr);
}

TEST_F(ClassRegistryTest, RunsActionsBySelectorText) {
    const auto object = std::make_shared<Base>();
    EXPECT_TRUE(performSelector(*object, "tapped:", object.get()));
    EXPECT_EQ(object->sender, object.get());
    EXPECT_TRUE(performSelector(*object, "closed", nullptr));
    EXPECT_EQ(object->closings, 1);
    EXPECT_FALSE(performSelector(*object, "tapped", nullptr));
    EXPECT_FALSE(respondsToSelector(*object, "radius"));
    const auto derived = std::make_shared<Unregistered>(); // its base overrides the action
    EXPECT_TRUE(performSelector(*derived, "tapped:", nullptr));
    EXPECT_EQ(derived->closings, 2);
}

TEST_F(ClassRegistryTest, AnObjectOutlivesTheActionThatDropsIt) {
    class Owner : public NSObject {
    public:
        void drop() {
            held->reset();
            ASSERT_FALSE(weak_from_this().expired());
            ++*drops;
        }
        std::shared_ptr<Owner>* held = nullptr;
        int* drops = nullptr;
    };
    ClassBuilder<Owner>("Owner", "NSObject").action("drop", &Owner::drop);
    auto object = std::make_shared<Owner>();
    int drops = 0;
    object->held = &object;
    object->drops = &drops;
    const std::weak_ptr<Owner> observed = object;
    EXPECT_TRUE(performSelector(*object, "drop", nullptr));
    EXPECT_EQ(drops, 1);
    EXPECT_TRUE(observed.expired());
}

TEST_F(ClassRegistryTest, OneNameForTwoClassesStopsTheProgram) {
    EXPECT_DEATH(ClassRegistry::shared().add("Base", "NSObject", typeid(Part), nullptr), "two classes are named Base");
    EXPECT_DEATH(ClassRegistry::shared().add("Orphan", "Nothing", typeid(int), nullptr),
                 "class Orphan is registered before its superclass Nothing");
}
