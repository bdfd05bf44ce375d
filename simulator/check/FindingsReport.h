#pragma once

#include "platform/foundation/Finding.h"

#include <cstddef>
#include <string>
#include <string_view>

/// How findings are shown to a person.
struct TextStyle {
    std::size_t columns = 100; // of the terminal; lines of files are shortened to it
    bool colored = false;
};

/// All findings with the line each is about and a caret below it, then how many they are. Texts of files are shown
/// without control characters.
[[nodiscard]] std::string textReport(const Findings& findings, std::size_t checkedFiles, const TextStyle& style);
/// The same for programs: one JSON object, or the XML that build servers read.
[[nodiscard]] std::string jsonReport(const Findings& findings, std::size_t checkedFiles);
[[nodiscard]] std::string junitReport(const Findings& findings, std::size_t checkedFiles);

/// Control characters as \x1B, bytes that are no UTF-8 as U+FFFD.
[[nodiscard]] std::string printable(std::string_view text);
/// The same of each line of a text.
[[nodiscard]] std::string printableLines(std::string_view text);
/// The same in quotes, as the value of an XML attribute.
[[nodiscard]] std::string quotedXML(std::string_view text);

/// The table of rules, for a terminal and as the page of the documents.
[[nodiscard]] std::string rulesText();
[[nodiscard]] std::string rulesPage();
