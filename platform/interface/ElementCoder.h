#pragma once

#include "platform/interface/ElementReader.h"
#include "platform/runtime/NSCoder.h"

#include <memory>
#include <vector>

/// What one element says about its object: by attribute, or by a child element with that key. Lives as long as the
/// object's constructor runs.
class ElementCoder : public NSCoder {
public:
    ElementCoder(const InterfaceElement& element, ElementReader& reader) : m_element(element), m_reader(reader) {}

    [[nodiscard]] std::optional<std::string> string(std::string_view key) const override;
    [[nodiscard]] std::optional<double> number(std::string_view key) const override;
    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override;
    [[nodiscard]] std::optional<CGRect> rect(std::string_view key) const override;
    [[nodiscard]] std::optional<UIEdgeInsets> insets(std::string_view key) const override;
    /// An attribute names an image. One that the catalogue lacks gives a null object, as does such a colour.
    [[nodiscard]] std::optional<std::shared_ptr<NSObject>> object(std::string_view key) const override;
    [[nodiscard]] const NSCoder* child(std::string_view element, std::string_view key) const override;
    void reportInvalid(std::string_view key, std::string_view expected) const override;

private:
    /// The attribute, else the value of the child with that key; null when absent.
    [[nodiscard]] const std::string* scalar(std::string_view key) const;
    /// The child with that key; null when there is none or it is <nil/>.
    [[nodiscard]] const InterfaceElement* keyed(std::string_view key) const;
    /// The same; one of another element's name is reported.
    [[nodiscard]] const InterfaceElement* keyed(std::string_view key,
                                                std::initializer_list<std::string_view> names) const;

    const InterfaceElement& m_element;
    ElementReader& m_reader;
    mutable std::vector<std::unique_ptr<ElementCoder>> m_children;
};
