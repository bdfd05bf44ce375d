#pragma once

#include "platform/runtime/ClassBuilder.h"

#include <string>

/// A small family of classes for the tests of this folder.
class Colour : public NSObject {
public:
    explicit Colour(std::string text) : name(std::move(text)) {}
    std::string name;
};

class Part : public NSObject {
public:
    void setRadius(CGFloat value) { radius = value; }
    CGFloat radius = 0;
};

class Base : public NSObject {
public:
    Base() = default;
    explicit Base(const NSCoder& coder) : title(coder.string("title").value_or("untitled")) {}

    void setTitle(const std::string& value) { title = value; }
    void setHidden(bool value) { hidden = value; }
    void setTag(int value) { tag = value; }
    void setColour(const std::shared_ptr<Colour>& value) { colour = value; }
    void setFrame(CGRect value) { frame = value; }
    void setDelegate(std::weak_ptr<Part> value) { delegate = std::move(value); }
    [[nodiscard]] std::shared_ptr<Part> part() const { return m_part; }
    void tapped(NSObject* from) { sender = from; }
    void closed() { ++closings; }

    Outlet<Part> panel{"panel"};
    std::string title;
    bool hidden = false;
    int tag = 0;
    int closings = 0;
    CGRect frame;
    std::shared_ptr<Colour> colour = std::make_shared<Colour>("none");
    std::weak_ptr<Part> delegate;
    NSObject* sender = nullptr;

private:
    std::shared_ptr<Part> m_part = std::make_shared<Part>();
};

class Derived : public Base {
public:
    using Base::Base;
    void doubled(NSObject*) { closings += 2; }
};

class Unregistered : public Derived {};

void registerTestClasses();
