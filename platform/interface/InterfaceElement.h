#pragma once

#include "platform/foundation/Result.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// One element of an interface document and where it stands in the file. The outermost one owns
/// the whole tree, which never changes afterwards.
struct InterfaceElement {
    std::string name;
    TextPlace place;                                             // of the opening bracket
    std::vector<std::pair<std::string, std::string>> attributes; // in file order
    std::vector<InterfaceElement> children;
    std::string text;        // character data directly inside
    std::string description; // <label id="abc-de-fgh">, for messages

    /// Null when absent.
    [[nodiscard]] const std::string* attribute(std::string_view key) const;
    /// The attribute's text, or nothing.
    [[nodiscard]] std::string_view value(std::string_view key) const;
    [[nodiscard]] std::string_view id() const { return value("id"); }
    /// The first child with key="…", whatever its name; null when absent.
    [[nodiscard]] const InterfaceElement* keyed(std::string_view key) const;
    /// The first child of that name; null when absent.
    [[nodiscard]] const InterfaceElement* child(std::string_view childName) const;
    /// What stands in that child; nothing when it is absent.
    [[nodiscard]] const std::vector<InterfaceElement>& inside(std::string_view childName) const;
    /// `<label id="abc-de-fgh">: what`, told at this element's place.
    [[nodiscard]] Failure failure(const std::string& what) const;
};

inline constexpr int greatestElementDepth = 200;

/// Documents may not have a document type; property lists do.
enum class DocumentType { refused, passedOver };

/// The outermost element of an XML text. What is malformed is told in words for whoever wrote it by hand, at the place
/// to mend: of tags that do not match, the one that nothing closes.
[[nodiscard]] Result<InterfaceElement> readElements(const std::string& text,
                                                    DocumentType documentType = DocumentType::refused);
