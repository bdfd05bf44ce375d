#pragma once

#include "platform/interface/InterfaceReport.h"
#include "platform/uikit/view/NSLayoutConstraint.h"

#include <memory>
#include <string_view>
#include <unordered_map>

/// What the ids of a document stand for while its objects are made and connected.
class InterfaceObjects {
public:
    struct Entry {
        std::shared_ptr<NSObject> object; // null for what is left out on purpose, such as an absent owner
        LayoutGuide guide = LayoutGuide::view;
    };

    /// The first object of an id keeps it; a second one is warned of. An element without an id is not kept.
    void put(const InterfaceElement& element, Entry entry, InterfaceReport& report);
    /// Null when no object has that id.
    [[nodiscard]] const Entry* find(std::string_view id) const;
    /// The same, named by an attribute; an id that nothing has is reported on the element.
    [[nodiscard]] const Entry* require(const InterfaceElement& element, std::string_view attribute,
                                       InterfaceReport& report) const;

private:
    std::unordered_map<std::string_view, Entry> m_entries;
};
