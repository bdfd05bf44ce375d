#pragma once

#include "platform/foundation/Finding.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// One element of an interface document and where it stands in the file. Made by InterfaceDocument, which owns the
/// whole tree; never changes afterwards.
struct InterfaceElement {
    std::string name;
    TextPlace place;                                             // of the opening bracket
    std::vector<std::pair<std::string, std::string>> attributes; // in file order
    std::vector<InterfaceElement> children;
    std::string text; // character data directly inside

    /// Null when absent.
    [[nodiscard]] const std::string* attribute(std::string_view key) const;
    /// The attribute's text, or nothing.
    [[nodiscard]] std::string_view value(std::string_view key) const;
    [[nodiscard]] std::string_view id() const { return value("id"); }
    /// The first child with key="…", whatever its name; null when absent.
    [[nodiscard]] const InterfaceElement* keyed(std::string_view key) const;
    /// The first child of that name; null when absent.
    [[nodiscard]] const InterfaceElement* child(std::string_view childName) const;
    /// <label id="abc-de-fgh">, for messages.
    [[nodiscard]] std::string describe() const;
};
