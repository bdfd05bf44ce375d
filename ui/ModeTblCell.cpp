#include "ui/ModeTblCell.h"

#include "ui/Colors.h"

void ModeTblCell::configure(const ModeItem& item) {
    iconImageView->setImage(UIImage::imageNamed(item.icon().value_or("")));
    lblTitle->setText(item.title());
    lblDesc->setText(item.subtitle());
    imgSelection->setImage(UIImage::imageNamed("list_arrow"));
    if (item.isSelected) {
        viewBackground->setBackgroundColor(colorFromHex("4DA289"));
        lblTitle->setTextColor(UIColor::whiteColor());
        lblDesc->setTextColor(UIColor::whiteColor());
    } else {
        viewBackground->setBackgroundColor(UIColor::whiteColor());
        lblDesc->setTextColor(named_colors::textGrey());
        lblTitle->setTextColor(named_colors::textColor());
    }
}
