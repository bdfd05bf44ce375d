#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSObject.h"

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// What an interface file says about one object, read by that object's constructor. A key that is absent gives an
/// empty optional; a value of the wrong type is reported to the file's reader (with file, line and element) and then
/// also gives an empty optional, so that constructors need no error path.
class NSCoder {
public:
    virtual ~NSCoder() = default;

    [[nodiscard]] virtual std::optional<std::string> string(std::string_view key) const = 0;
    /// Finite numbers only.
    [[nodiscard]] virtual std::optional<double> number(std::string_view key) const = 0;
    /// Written YES or NO.
    [[nodiscard]] virtual std::optional<bool> boolean(std::string_view key) const = 0;
    [[nodiscard]] virtual std::optional<CGRect> rect(std::string_view key) const = 0;
    [[nodiscard]] virtual std::optional<UIEdgeInsets> insets(std::string_view key) const = 0;
    /// A colour, font or image described in place. An explicit "nil" gives a null object.
    [[nodiscard]] virtual std::optional<std::shared_ptr<NSObject>> object(std::string_view key) const = 0;
    /// A nested element such as a button's state; null when absent. Owned by this coder.
    [[nodiscard]] virtual const NSCoder* child(std::string_view element, std::string_view key) const = 0;
    /// Reports that the value of `key` cannot be used.
    virtual void reportInvalid(std::string_view key, std::string_view expected) const = 0;

    /// One of a fixed set of words; an unknown word is reported.
    template <class Enum>
    [[nodiscard]] std::optional<Enum> choice(std::string_view key,
                                             std::initializer_list<std::pair<std::string_view, Enum>> words) const;
    /// An object of a class; one of another class is reported.
    template <class T>
    [[nodiscard]] std::optional<std::shared_ptr<T>> objectOf(std::string_view key, std::string_view expected) const;
};

template <class Enum>
std::optional<Enum> NSCoder::choice(std::string_view key,
                                    std::initializer_list<std::pair<std::string_view, Enum>> words) const {
    const std::optional<std::string> text = string(key);
    if (!text) {
        return std::nullopt;
    }
    std::string expected = "one of";
    for (const auto& [word, value] : words) {
        if (word == *text) {
            return value;
        }
        expected.append(expected == "one of" ? " " : ", ").append(word);
    }
    reportInvalid(key, expected);
    return std::nullopt;
}

template <class T>
std::optional<std::shared_ptr<T>> NSCoder::objectOf(std::string_view key, std::string_view expected) const {
    const std::optional<std::shared_ptr<NSObject>> found = object(key);
    if (!found) {
        return std::nullopt;
    }
    std::shared_ptr<T> typed = std::dynamic_pointer_cast<T>(*found);
    if (*found && !typed) {
        reportInvalid(key, expected);
        return std::nullopt;
    }
    return typed;
}
