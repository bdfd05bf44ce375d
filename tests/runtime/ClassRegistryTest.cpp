#include "platform/runtime/ClassBuilder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class Part : public NSObject {
public:
    void setRadius(CGFloat value) { radius = value; }
    CGFloat radius = 0;
};

class Base : public NSObject {
public:
    void setTitle(const std::string& value) { title = value; }
    void setHeld(const std::shared_ptr<Part>& value) { held = value; }
    [[nodiscard]] std::shared_ptr<Part> part() const { return m_part; }
    void tapped(NSObject* from) { sender = from; }

    Outlet<Part> panel{this, "panel"};
    std::string title;
    int closings = 0;
    std::shared_ptr<Part> held;
    NSObject* sender = nullptr;

private:
    std::shared_ptr<Part> m_part = std::make_shared<Part>();
};

class Derived : public Base {
public:
    void doubled(NSObject*) { closings += 2; }
};

class Unregistered : public Derived {};

void setStroke(Base& base, int value) {
    base.closings = value * 10;
}

class ClassRegistryTest : public testing::Test {
protected:
    static void registerClasses() {
        ClassBuilder<Part>("Part", "NSObject").property("radius", &Part::setRadius);
        ClassBuilder<Base>("Base", "NSObject")
            .outlet("panel", &Base::panel)
            .property("title", &Base::setTitle)
            .property("held", &Base::setHeld)
            .property("stroke", &setStroke)
            .object("part", &Base::part)
            .action("tapped:", &Base::tapped);
        ClassBuilder<Derived>("Derived", "Base").action("tapped:", &Derived::doubled);
    }
    static Acceptance set(const char* key, const Value& value, NSObject& object) {
        return (*ClassRegistry::shared().classOf(object).properties.find(key))(object, value);
    }

    const std::shared_ptr<Unregistered> object = std::make_shared<Unregistered>();
    const ObjectClass& derived = (registerClasses(), *ClassRegistry::shared().find("Derived"));
};

} // namespace

TEST_F(ClassRegistryTest, TakesAnObjectForItsClassOrTheNearestBaseThatIsRegistered) {
    class Plain : public NSObject {};
    class Late : public Unregistered {};
    class Latest : public Late {};
    EXPECT_EQ(classNameOf(*std::make_shared<Base>()), "Base");
    EXPECT_EQ(classNameOf(*object), "Derived");
    EXPECT_EQ(classNameOf(*std::make_shared<Latest>()), "Derived");
    EXPECT_TRUE(canBeAskedForSelectors(*std::make_shared<Latest>()));
    ClassBuilder<Late>("Late", "Derived");
    EXPECT_EQ(classNameOf(*std::make_shared<Latest>()), "Late") << "registered after it was asked for";
    EXPECT_EQ(classNameOf(*std::make_shared<Plain>()), "NSObject");
    EXPECT_FALSE(canBeAskedForSelectors(*std::make_shared<Plain>()));
}

TEST_F(ClassRegistryTest, ListsTheNamesOfSuperclassesToo) {
    EXPECT_EQ(derived.outlets.names(), (std::vector<std::string>{"panel"}));
    registerClasses(); // a second time is harmless
    EXPECT_EQ(derived.actions.names(), (std::vector<std::string>{"tapped:"}));
    EXPECT_EQ(derived.properties.find("radius"), nullptr) << "of another class";
}

TEST_F(ClassRegistryTest, SetsWhatIsOfTheRightType) {
    const auto part = std::make_shared<Part>();
    EXPECT_EQ(set("title", std::string("Vibes"), *object), Acceptance::accepted);
    EXPECT_EQ(set("title", 1.0, *object), Acceptance::wrongType);
    EXPECT_EQ(object->title, "Vibes");
    EXPECT_EQ(set("stroke", 2.0, *object), Acceptance::accepted); // a free function
    EXPECT_EQ(set("stroke", true, *object), Acceptance::wrongType);
    EXPECT_EQ(object->closings, 20);
    EXPECT_EQ(set("held", std::shared_ptr<NSObject>(part), *object), Acceptance::accepted);
    EXPECT_EQ(set("held", std::shared_ptr<NSObject>(object), *object), Acceptance::wrongType);
    EXPECT_EQ(object->held, part);
    EXPECT_EQ(set("held", std::shared_ptr<NSObject>(), *object), Acceptance::accepted);
    EXPECT_EQ(object->held, nullptr);
    EXPECT_EQ(set("radius", 8.0, *(*derived.objects.find("part"))(*object)), Acceptance::accepted);
    EXPECT_EQ(object->part()->radius, 8);
}

TEST_F(ClassRegistryTest, ConnectsOutletsWeaklyAndOnlyToTheirClass) {
    auto part = std::make_shared<Part>();
    EXPECT_EQ((*derived.outlets.find("panel"))(*object, object), Acceptance::wrongType);
    EXPECT_EQ((*derived.outlets.find("panel"))(*object, part), Acceptance::accepted);
    EXPECT_TRUE(object->panel.is(*part));
    part.reset();
    EXPECT_EQ(object->panel.get(), nullptr);
}

TEST_F(ClassRegistryTest, RunsActionsBySelectorText) {
    const auto base = std::make_shared<Base>();
    EXPECT_TRUE(performSelector(*base, "tapped:", base.get()));
    EXPECT_EQ(base->sender, base.get());
    EXPECT_FALSE(performSelector(*base, "tapped", nullptr));
    EXPECT_TRUE(performSelector(*object, "tapped:", nullptr)); // its base overrides the action
    EXPECT_EQ(object->closings, 2);
}

TEST_F(ClassRegistryTest, AnObjectOutlivesTheActionThatDropsIt) {
    class Owner : public NSObject {
    public:
        void drop() {
            held = nullptr;
            EXPECT_FALSE(weak_from_this().expired());
        }
        std::shared_ptr<Owner> held;
    };
    ClassBuilder<Owner>("Owner", "NSObject").action("drop", &Owner::drop);
    auto owner = std::make_shared<Owner>();
    const std::weak_ptr<Owner> observed = owner;
    owner->held = owner;
    Owner& last = *std::exchange(owner, nullptr);
    EXPECT_TRUE(performSelector(last, "drop", nullptr));
    EXPECT_TRUE(observed.expired());
}

using ClassRegistryDeathTest = ClassRegistryTest;

TEST_F(ClassRegistryDeathTest, OneNameForTwoClassesStopsTheProgram) {
    EXPECT_DEATH(ClassRegistry::shared().add("Base", "NSObject", typeid(Part), nullptr), "two classes are named Base");
    EXPECT_DEATH(ClassRegistry::shared().add("Orphan", "Nothing", typeid(int), nullptr),
                 "class Orphan is registered before its superclass Nothing");
}

TEST_F(ClassRegistryDeathTest, FollowingAnUnconnectedOutletStopsWithItsNameAndItsOwnersPlace) {
    EXPECT_DEATH((void)object->panel->radius, "^Fatal error: Derived: the outlet panel is not connected\n$");
    setSourceLocation(*object, {std::make_shared<const std::string>("Main.storyboard"), {12, 9}, "<view id=\"v\">"});
    object->panel = std::make_shared<Part>(); // gone at once
    EXPECT_DEATH((void)(*object->panel).radius,
                 "Main.storyboard:12:9: error: Derived <view id=\"v\">: the outlet panel is not connected\n$");
}
