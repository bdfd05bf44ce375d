#pragma once

#include "platform/runtime/ClassBuilder.h"

#include <string>

/// A small family of classes for the tests of this folder.
class Part : public NSObject {
public:
    void setRadius(CGFloat value) { radius = value; }
    CGFloat radius = 0;
};

class Base : public NSObject {
public:
    void setTitle(const std::string& value) { title = value; }
    void setHidden(bool value) { hidden = value; }
    void setTag(int value) { tag = value; }
    void setHeld(const std::shared_ptr<Part>& value) { held = value; }
    void setDelegate(std::weak_ptr<Part> value) { delegate = std::move(value); }
    [[nodiscard]] std::shared_ptr<Part> part() const { return m_part; }
    void tapped(NSObject* from) { sender = from; }
    void closed() { ++closings; }

    Outlet<Part> panel{this, "panel"};
    std::string title;
    bool hidden = false;
    int tag = 0;
    int closings = 0;
    std::shared_ptr<Part> held;
    std::weak_ptr<Part> delegate;
    NSObject* sender = nullptr;

private:
    std::shared_ptr<Part> m_part = std::make_shared<Part>();
};

class Derived : public Base {
public:
    void doubled(NSObject*) { closings += 2; }
};

class Unregistered : public Derived {};

void registerTestClasses();
