#include "platform/foundation/NSAttributedString.h"

#include "platform/foundation/FatalError.h"

std::optional<NSParagraphStyle> NSMutableAttributedString::paragraphStyleAt(std::size_t location) const {
    for (auto run = m_runs.rbegin(); run != m_runs.rend(); ++run) {
        if (location >= run->range.location && location - run->range.location < run->range.length) {
            return run->style;
        }
    }
    return std::nullopt;
}

void NSMutableAttributedString::addAttributeValueRange(NSAttributedStringKey name, const NSParagraphStyle& value,
                                                       NSRange range) {
    const std::size_t end = length();
    if (range.location > end || range.length > end - range.location) {
        fatalError("an attribute was added beyond the end of its text");
    }
    if (name == NSAttributedStringKey::paragraphStyle) {
        m_runs.push_back({range, value});
    }
}
