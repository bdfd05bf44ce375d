#include "simulator/check/Slips.h"

#include "simulator/check/Rules.h"

void Slips::tell(std::string_view rule, std::size_t offset, std::string what, Kind kind, const std::string& where) {
    const std::string key = std::string(rule) + (kind == Kind::habit ? what : "");
    Group& group = m_groups[key];
    group.kind = kind;
    ++group.count;
    group.last = std::max(group.last, offset);
    if (group.count <= group.most()) {
        m_slips.push_back({rule, offset, where + what, key});
    }
}

void Slips::forget(std::string_view rule, std::size_t offset) {
    std::erase_if(m_slips, [&](const Slip& slip) { return slip.offset == offset && slip.rule == rule; });
}

void Slips::clear() {
    m_slips.clear();
    m_groups.clear();
}

std::string Slips::Group::remark(std::size_t number, const TextPlaces& places) const {
    if (count <= most()) {
        return "";
    }
    if (kind == Kind::habit) {
        return " (" + std::to_string(count) + " times in this file, the last in line " +
               std::to_string(places.lineAt(last)) + ")";
    }
    return number < most() ? "" : " (and " + std::to_string(count - most()) + " more of this rule in this file)";
}

Findings Slips::findings(const TextPlaces& places, const std::string& path) const {
    Findings findings;
    std::map<std::string_view, std::size_t> told;
    for (const Slip& slip : m_slips) {
        const Group& group = m_groups.find(slip.group)->second;
        const std::size_t number = ++told[slip.group];
        if (number == 1 || group.kind == Kind::single || group.count <= group.most()) {
            findings.push_back(
                findingOf(slip.rule, path, places.at(slip.offset), slip.what + group.remark(number, places)));
        }
    }
    return findings;
}
