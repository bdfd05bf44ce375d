#pragma once

#include <memory>
#include <string>

/// A regular expression that a text has to match as a whole, whatever its case. Patterns are written by others: neither
/// one that tries without end nor a very long one can hold Parlor up, and one that is none matches nothing.
class TextPattern {
public:
    explicit TextPattern(const std::string& pattern);

    [[nodiscard]] bool matches(const std::string& text) const;

private:
    struct Code;

    std::shared_ptr<const Code> m_code; // null when the pattern is no regular expression
};
