#pragma once

#include <string>
#include <vector>

/// The images of the main bundle's catalogue that are meant for the rows of lists, by name.
[[nodiscard]] std::vector<std::string> iconNames();
