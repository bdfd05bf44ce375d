#include "simulator/check/TitleFit.h"

#include "platform/foundation/NSBundle.h"
#include "platform/interface/NibBuilder.h"
#include "platform/uikit/controls/UILabel.h"
#include "simulator/conversation/Device.h"
#include "ui/ModeHeaderView.h"
#include "ui/ModeTblCell.h"

#include <cmath>

namespace {

constexpr const char* smallestDevice = "se";
constexpr CGFloat headerHeight = 30;
/// Whatever has so few bytes has room, and need not be laid out.
constexpr std::size_t surelyShort = 24;

/// Null where the nib is missing or faulty, which other checks tell.
template <class View>
std::shared_ptr<View> firstOfNib(const std::string& name) {
    const auto path = InterfaceDocument::pathIn(NSBundle::mainBundle(), name, InterfaceDocument::Kind::nib);
    const InterfaceDocument::Loaded loaded = InterfaceDocument::load(path);
    if (!loaded || loaded.value()->kind() != InterfaceDocument::Kind::nib) {
        return nullptr;
    }
    NibBuilder maker(*loaded.value());
    const NibBuilder::Objects objects = maker.makeNib(nullptr);
    return objects.empty() || hasErrors(maker.findings()) ? nullptr : std::dynamic_pointer_cast<View>(objects.front());
}

CGFloat smallestWidth() {
    return deviceNamed(smallestDevice).value().size.width;
}

std::string problemOf(const UILabel& label) {
    const CGSize room = label.bounds().size;
    const auto layout = label.textLayoutFitting(room);
    if (!layout || !layout->isCut()) {
        return {};
    }
    const auto points = [](CGFloat length) { return std::to_string(std::lround(length)); };
    return std::string("is cut off on the device ") + smallestDevice + ": in one line it needs " +
           points(label.textLayout(std::nullopt)->size().width) + " points, and has " + points(room.width) +
           ", even if it is set smaller";
}

} // namespace

TitleFit::TitleFit()
    : m_header(firstOfNib<ModeHeaderView>("ModeHeaderView")), m_row(firstOfNib<ModeTblCell>("ModeTblCell")) {
    if (m_header && !m_header->lblHeaderTitle.get()) {
        m_header = nullptr;
    }
    if (m_row && !m_row->lblTitle.get()) {
        m_row = nullptr;
    }
}

TitleFit::~TitleFit() = default;

std::string TitleFit::problemOfSection(const std::string& title) const {
    if (!m_header || title.size() < surelyShort) {
        return {};
    }
    m_header->setFrame(CGRectMake(0, 0, smallestWidth(), headerHeight));
    m_header->lblHeaderTitle->setText(title);
    m_header->layoutIfNeeded();
    return problemOf(*m_header->lblHeaderTitle);
}

std::string TitleFit::problemOfRow(const std::string& title) const {
    if (!m_row || title.size() < surelyShort) {
        return {};
    }
    m_row->lblTitle->setText(title);
    m_row->setFrame(CGRectMake(0, 0, smallestWidth(), m_row->heightFittingWidth(smallestWidth())));
    m_row->layoutIfNeeded();
    return problemOf(*m_row->lblTitle);
}
