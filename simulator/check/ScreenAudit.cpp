#include "simulator/check/ScreenAudit.h"

#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/controls/UITextField.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "simulator/check/Contrast.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/pictures/ScreenPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr CGFloat smallestTarget = 44;
constexpr CGFloat roundingRoom = 0.6; // frames stand on device pixels
constexpr const char* notMeasured = "the contrast is not measured";

CGRect frameInWindow(const UIView& view) {
    return view.convertRectToView(view.bounds(), nullptr);
}

bool isControl(const UIView& view) {
    return dynamic_cast<const UIControl*>(&view) != nullptr;
}

/// Whether something inside the view says what it is.
bool hasName(const UIView& view) {
    const std::vector<std::string> texts = textsOf(view);
    return !texts.empty() || std::any_of(view.subviews().begin(), view.subviews().end(),
                                         [](const auto& subview) { return hasName(*subview); });
}

bool paints(const UIView& view) {
    const std::shared_ptr<UIColor> background = view.backgroundColor();
    return (background && background->components().alpha > 0) || dynamic_cast<const UILabel*>(&view) != nullptr ||
           dynamic_cast<const UIImageView*>(&view) != nullptr;
}

/// Whether something that is drawn after the target reaches into its area; `isPassed` once the target has been met.
bool isPaintedOver(const UIView& view, const UIView& target, const CGRect& area, bool& isPassed) {
    if (&view == &target) {
        isPassed = true;
        return false;
    }
    if (!view.isDrawn()) {
        return false;
    }
    if (isPassed && paints(view) && !frameInWindow(view).intersection(area).isEmpty()) {
        return true;
    }
    return std::any_of(view.subviews().begin(), view.subviews().end(),
                       [&](const auto& subview) { return isPaintedOver(*subview, target, area, isPassed); });
}

/// Whether two views belong to parts of the screen that lie one above the other: then neither comes first.
bool lieInLayers(const UIView& one, const UIView& other) {
    const UIView* part = &one;
    while (part->superview() != nullptr && !other.isDescendantOfView(*part->superview())) {
        part = part->superview();
    }
    const UIView* otherPart = &other;
    while (otherPart->superview() != nullptr && otherPart->superview() != part->superview()) {
        otherPart = otherPart->superview();
    }
    return !frameInWindow(*part).intersection(frameInWindow(*otherPart)).isEmpty();
}

std::string rounded(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4g", std::round(number * 10) / 10);
    return text.data();
}

/// The part of a view that a finger reaches: touches end at the edges of all views around it. Scrolled content is what
/// scrolling brings.
CGSize touchableSize(const UIView& view) {
    CGRect area = frameInWindow(view);
    const UIView* around = view.superview();
    for (; around != nullptr && dynamic_cast<const UIScrollView*>(around) == nullptr; around = around->superview()) {
        area = area.intersection(frameInWindow(*around));
    }
    return around == nullptr ? area.size : view.bounds().size;
}

/// In the window, as far as the letters go.
CGRect areaOfText(const UILabel& label) {
    CGRect area = frameInWindow(label);
    const CGSize text = label.textLayoutFitting(area.size)->size();
    const CGFloat aside = area.size.width - text.width;
    const NSTextAlignment alignment = label.textAlignment();
    area.origin.x += alignment == NSTextAlignment::center ? aside / 2 : alignment == NSTextAlignment::right ? aside : 0;
    area.size.width = text.width;
    return area;
}

RGBA paintedColor(const UILabel& label, UIUserInterfaceStyle appearance) {
    RGBA color = label.textColor()->resolved(appearance);
    for (const UIView* view = &label; view != nullptr; view = view->superview()) {
        color.alpha *= view->alpha();
    }
    return color;
}

/// The rows of a table are read from top to bottom, however their views lie.
std::vector<std::shared_ptr<UIView>> inReadingOrder(const UIView& view) {
    std::vector<std::shared_ptr<UIView>> subviews = view.subviews();
    if (dynamic_cast<const UIScrollView*>(&view) != nullptr) {
        std::stable_sort(subviews.begin(), subviews.end(), [](const auto& one, const auto& other) {
            return one->frame().minY() < other->frame().minY();
        });
    }
    return subviews;
}

} // namespace

void ScreenAudit::lookInBothAppearances() {
    for (const UIUserInterfaceStyle appearance : {UIUserInterfaceStyle::dark, UIUserInterfaceStyle::light}) {
        m_host.window().setUserInterfaceStyle(appearance);
        m_host.settle();
        look();
        checkContrasts();
    }
}

void ScreenAudit::lookAtContents() {
    look();
    const bool isNew = std::any_of(m_labels.begin(), m_labels.end(),
                                   [this](const auto& label) { return m_measured.count(describe(*label)) == 0; });
    if (isNew) {
        checkContrasts();
    }
}

void ScreenAudit::tellUnmeasured() {
    for (const auto& [about, why] : m_unmeasured) {
        if (m_measured.count(about) == 0) {
            tell("a11y.unmeasured", about, notMeasured, why);
        }
    }
}

void ScreenAudit::look() {
    m_labels.clear();
    m_read.clear();
    for (const View& view : m_host.window().subviews()) {
        collect(view);
    }
    checkOrder();
}

void ScreenAudit::collect(const View& view) {
    if (!view->isDrawn()) {
        return;
    }
    checkFrame(*view);
    checkRow(*view);
    checkTarget(*view);
    if (const auto label = std::dynamic_pointer_cast<UILabel>(view); label && !label->text().value_or("").empty()) {
        collectText(label);
    } else if (isControl(*view) && !view->accessibilityLabel().empty() &&
               ScreenElement(m_host.window(), view).isVisible()) {
        m_read.push_back(view);
    }
    if (dynamic_cast<const UITextField*>(view.get()) != nullptr && !textsOf(*view).empty()) {
        m_unmeasured.emplace(describe(*view), "a text field paints its text itself");
    }
    for (const View& subview : inReadingOrder(*view)) {
        collect(subview);
    }
}

void ScreenAudit::collectText(const std::shared_ptr<UILabel>& label) {
    checkText(*label);
    const double visible = ScreenElement(m_host.window(), label).visibleShare();
    bool isPassed = false;
    if (visible > 0.99 && !isPaintedOver(m_host.window(), *label, frameInWindow(*label), isPassed)) {
        m_labels.push_back(label);
    } else if (visible > 0) {
        m_unmeasured.emplace(describe(*label), "the text is always covered in part");
    }
    if (visible >= 0.5) {
        m_read.push_back(label);
    }
}

/// Scrolled content stands outside by its nature.
void ScreenAudit::checkFrame(const UIView& view) {
    const UIView* superview = view.superview();
    if (superview == nullptr || dynamic_cast<const UIScrollView*>(superview) != nullptr || view.frame().isEmpty()) {
        return;
    }
    const CGRect frame = view.frame();
    const CGRect& room = superview->bounds();
    if (room.intersection(frame).isEmpty()) {
        return; // put away on purpose
    }
    const std::pair<const char*, CGFloat> sides[] = {{"left", room.minX() - frame.minX()},
                                                     {"right", frame.maxX() - room.maxX()},
                                                     {"top", room.minY() - frame.minY()},
                                                     {"bottom", frame.maxY() - room.maxY()}};
    for (const auto& [side, outside] : sides) {
        if (outside > roundingRoom) {
            tell("layout.outside", describe(view), "the view stands out of " + describe(*superview).name,
                 "by " + lengthText(outside) + " at the " + side, outside);
        }
    }
}

void ScreenAudit::checkRow(const UIView& view) {
    const auto* cell = dynamic_cast<const UITableViewCell*>(&view);
    if (cell != nullptr && !cell->contentView()->subviews().empty() &&
        cell->contentView()->heightFittingWidth(view.bounds().size.width) < 1) {
        tell("layout.ambiguous", describe(view), "nothing decides the height of the row");
    }
}

void ScreenAudit::checkTarget(const UIView& view) {
    const auto* control = dynamic_cast<const UIControl*>(&view);
    const bool isRow = dynamic_cast<const UITableViewCell*>(&view) != nullptr;
    if ((control == nullptr || !control->isEnabled()) && !isRow) {
        return;
    }
    const CGSize size = touchableSize(view);
    const bool isPutAway = size.width <= 0 || size.height <= 0;
    if (!isPutAway && std::min(size.width, size.height) < smallestTarget - 0.01) {
        const CGSize whole = view.bounds().size;
        const bool isWhole = size.width > whole.width - roundingRoom && size.height > whole.height - roundingRoom;
        tell("a11y.target", describe(view), "a finger needs 44 x 44 points",
             (isWhole ? "this is " : "what stands in its superviews is ") + rounded(size.width) + " x " +
                 rounded(size.height),
             -std::min(size.width, size.height));
    }
    if (!hasName(view)) {
        tell("a11y.label", describe(view), "this can be tapped and has neither a text nor a label for assistive tools");
    }
}

void ScreenAudit::checkText(const UILabel& label) {
    const CGSize room = label.bounds().size;
    const std::shared_ptr<const TextLayout> layout = label.textLayoutFitting(room);
    const std::string text = "\"" + *label.text() + "\" ";
    if (layout->isCut()) {
        const CGFloat needed = label.textLayout(std::nullopt)->size().width;
        tell("layout.text-cut", describe(label), "the text is cut off",
             text + "needs " + lengthText(needed) + " in one line, and has " + lengthText(room.width),
             needed - room.width);
    } else if (const CGFloat above = layout->size().height - room.height; above > roundingRoom) {
        tell("layout.text-cut", describe(label), "the text is higher than its view", text + "by " + lengthText(above),
             above);
    }
}

void ScreenAudit::checkOrder() {
    for (std::size_t i = 1; i < m_read.size(); ++i) {
        const UIView& earlier = *m_read[i - 1];
        const UIView& later = *m_read[i];
        const CGRect before = frameInWindow(earlier);
        const CGRect here = frameInWindow(later);
        const bool isAbove = here.maxY() <= before.minY() + roundingRoom;
        const bool sharesLine = here.midY() > before.minY() && here.midY() < before.maxY();
        const bool isBefore = isAbove || (sharesLine && here.maxX() <= before.minX() + roundingRoom);
        if (isBefore && !lieInLayers(earlier, later)) {
            const bool isOfOtherDocument = describe(earlier).path != describe(later).path; // a row
            tell("a11y.order", describe(later),
                 std::string("this is read after what stands ") + (isAbove ? "below" : "to the right of") + " it" +
                     (isOfOtherDocument ? "" : ", " + describe(earlier).name));
        }
    }
}

/// All texts are taken away for one picture, which then shows what lies under each.
void ScreenAudit::checkContrasts() {
    std::vector<std::shared_ptr<UIColor>> colors;
    for (const std::shared_ptr<UILabel>& label : m_labels) {
        colors.push_back(label->textColor());
        label->setTextColor(UIColor::clearColor());
    }
    const Bitmap ground = takePicture(m_host, PictureExtent::extension, 1);
    for (std::size_t i = 0; i < m_labels.size(); ++i) {
        m_labels[i]->setTextColor(colors[i]);
    }
    for (const std::shared_ptr<UILabel>& label : m_labels) {
        checkContrast(*label, ground);
        m_measured.insert(describe(*label));
    }
}

void ScreenAudit::checkContrast(const UILabel& label, const Bitmap& ground) {
    const UIUserInterfaceStyle appearance = m_host.window().userInterfaceStyle();
    const ContrastRange range = contrastOver(ground, areaOfText(label), paintedColor(label, appearance));
    const UIFont& font = *label.font();
    const bool isLarge = font.pointSize() >= 24 || (font.pointSize() >= 18 && font.weight() >= UIFontWeight::bold);
    const double needed = isLarge ? 3 : 4.5;
    if (range.least >= needed - 0.01) {
        return;
    }
    const std::string contrast = " has a contrast of " + ratioText(range.least) + ", and needs " + ratioText(needed);
    if (range.isOneGround) {
        tell("a11y.contrast", describe(label), range.colors + contrast, "", -range.least);
    } else if (range.most < needed) {
        tell("a11y.contrast", describe(label),
             "several colours lie under the text, and none is far enough from its own", range.colors + contrast,
             -range.least);
    } else {
        tell("a11y.unmeasured", describe(label), notMeasured,
             "several colours lie under the text, from " + ratioText(range.least) + " to " + ratioText(range.most) +
                 ", where " + ratioText(needed) + " is needed",
             -range.least);
    }
    m_findings.back().appearance = appearance == UIUserInterfaceStyle::dark ? "dark" : "light";
}

ScreenAudit::Description ScreenAudit::describe(const UIView& view) {
    Description description;
    for (const UIView* at = &view; at != nullptr; at = at->superview()) {
        if (const SourceLocation* source = sourceLocationOf(*at)) {
            description = {*source->file, source->place, std::string(source->element)};
            break;
        }
    }
    const auto* label = dynamic_cast<const UILabel*>(&view);
    if (description.name.empty()) {
        description.name = label != nullptr ? "a label" : "a view";
    }
    return description;
}

std::string ScreenAudit::lengthText(CGFloat points) const {
    return rounded(points) + " points (" +
           std::to_string(static_cast<int>(std::lround(points * m_host.device().scale))) + " pixels)";
}

void ScreenAudit::tell(const char* rule, const Description& about, const std::string& what, const std::string& detail,
                       double amount) {
    m_findings.push_back(
        {rule, about.path, about.place, about.name + ": " + what, detail, amount, m_host.device().name});
}
