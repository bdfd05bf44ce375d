#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The names of all elements that interface documents are known to have.
[[nodiscard]] const std::vector<std::string>& knownElements();
/// Those that belong to the phone's documents and do nothing here.
[[nodiscard]] const std::vector<std::string>& elementsWithoutEffect();
/// The words that an attribute can be, where making the object does not look at it; empty for any other.
[[nodiscard]] std::vector<std::string> knownWords(const std::string& element, const std::string& attribute);
/// The attributes of elements of that name; empty for an element whose attributes nobody wrote down here.
[[nodiscard]] const std::vector<std::string>& knownAttributes(std::string_view element);
