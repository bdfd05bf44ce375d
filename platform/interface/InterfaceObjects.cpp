#include "platform/interface/InterfaceObjects.h"

void InterfaceObjects::put(const InterfaceElement& element, Entry entry, InterfaceReport& report) {
    const std::string_view id = element.id();
    if (!id.empty() && !m_entries.emplace(id, std::move(entry)).second) {
        report.warning(element, "another object has this id; the first one counts");
    }
}

const InterfaceObjects::Entry* InterfaceObjects::find(std::string_view id) const {
    const auto found = m_entries.find(id);
    return found == m_entries.end() ? nullptr : &found->second;
}

const InterfaceObjects::Entry* InterfaceObjects::require(const InterfaceElement& element, std::string_view attribute,
                                                         InterfaceReport& report) const {
    const std::string_view id = element.value(attribute);
    const Entry* entry = find(id);
    if (entry == nullptr) {
        report.error(element, std::string(attribute) + ": no object has the id \"" + std::string(id) + "\"");
    }
    return entry;
}
