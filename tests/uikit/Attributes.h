#pragma once

#include "platform/runtime/NSCoder.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace support {

/// What an interface file would say of one object, given by a test.
class Attributes : public NSCoder {
public:
    std::map<std::string, std::string> strings;
    std::map<std::string, double> numbers;
    std::map<std::string, bool> booleans;
    std::map<std::string, CGRect> rects;
    std::map<std::string, UIEdgeInsets> edges;
    std::map<std::string, std::shared_ptr<NSObject>> objects;
    std::map<std::string, std::shared_ptr<Attributes>> children; // by key
    mutable std::vector<std::string> reports;

    [[nodiscard]] std::optional<std::string> string(std::string_view key) const override { return in(strings, key); }
    [[nodiscard]] std::optional<double> number(std::string_view key) const override { return in(numbers, key); }
    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override { return in(booleans, key); }
    [[nodiscard]] std::optional<CGRect> rect(std::string_view key) const override { return in(rects, key); }
    [[nodiscard]] std::optional<CGSize> size(std::string_view) const override { return std::nullopt; }
    [[nodiscard]] std::optional<UIEdgeInsets> insets(std::string_view key) const override { return in(edges, key); }
    [[nodiscard]] std::optional<std::shared_ptr<NSObject>> object(std::string_view key) const override {
        return in(objects, key);
    }
    [[nodiscard]] const NSCoder* child(std::string_view, std::string_view key) const override {
        return in(children, key).value_or(nullptr).get();
    }
    void reportInvalid(std::string_view key, std::string_view expected) const override {
        reports.push_back(std::string(key) + ": expected " + std::string(expected));
    }

private:
    template <class T>
    static std::optional<T> in(const std::map<std::string, T>& values, std::string_view key) {
        const auto found = values.find(std::string(key));
        return found == values.end() ? std::nullopt : std::optional<T>(found->second);
    }
};

} // namespace support
