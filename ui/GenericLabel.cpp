#include "ui/GenericLabel.h"

void GenericLabel::setSpace(CGFloat space) {
    m_space = space;
    applyLineSpacing(space);
}

void GenericLabel::applyLineSpacing(CGFloat spacing) {
    NSMutableParagraphStyle style;
    style.lineSpacing = spacing;
    style.alignment = textAlignment();
    NSMutableAttributedString spaced(text().value_or(""));
    spaced.addAttributeValueRange(NSParagraphStyleAttributeName, style, NSMakeRange(0, spaced.length()));
    setAttributedText(spaced);
}
