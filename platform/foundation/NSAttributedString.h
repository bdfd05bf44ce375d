#pragma once

#include "platform/foundation/NSParagraphStyle.h"
#include "platform/foundation/Text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

enum class NSAttributedStringKey { paragraphStyle };

inline constexpr NSAttributedStringKey NSParagraphStyleAttributeName = NSAttributedStringKey::paragraphStyle;

/// A text (UTF-8) with paragraph styles on stretches of it. A value.
class NSMutableAttributedString {
public:
    explicit NSMutableAttributedString(std::string text) : m_text(std::move(text)) {}

    [[nodiscard]] const std::string& string() const { return m_text; }
    /// In UTF-16 code units.
    [[nodiscard]] std::size_t length() const { return utf16Length(m_text); }
    /// The style that holds at a code unit; none when none was added there.
    [[nodiscard]] std::optional<NSParagraphStyle> paragraphStyleAt(std::size_t location) const;
    /// A range beyond the end of the text stops the program. Selector addAttribute:value:range:
    void addAttributeValueRange(NSAttributedStringKey name, const NSParagraphStyle& value, NSRange range);

    friend bool operator==(const NSMutableAttributedString&, const NSMutableAttributedString&) = default;

private:
    struct Run {
        NSRange range;
        NSParagraphStyle style;

        friend bool operator==(const Run&, const Run&) = default;
    };

    std::string m_text;
    std::vector<Run> m_runs; // later ones win
};
