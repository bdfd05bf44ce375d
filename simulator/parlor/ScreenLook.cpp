#include "simulator/parlor/ScreenLook.h"

#include "simulator/check/KnownFindings.h"
#include "simulator/check/Rules.h"
#include "simulator/check/ScreenCheck.h"

#include <cstdio>

namespace fs = std::filesystem;

namespace {

/// Nobody wants the debug lines; and whoever plays says by itself what goes wrong while the extension opens.
std::string look(const PreparedBundle& bundle, const std::string& device, ScreenExtent extent) {
    FILE* nowhere = std::freopen("/dev/null", "w", stdout);
    if (extent == ScreenExtent::opening && nowhere != nullptr) {
        nowhere = std::freopen("/dev/null", "w", stderr);
    }
    if (nowhere == nullptr) {
        return "";
    }
    Flow opening;
    opening.device = device;
    bundle.openFor(opening);
    return screenFindingsText(checkScreen(bundle.deviceFor(opening), extent));
}

std::vector<OwnProcesses::Work> looks(const PreparedBundle& bundle, const std::vector<std::string>& devices,
                                      ScreenExtent extent) {
    std::vector<OwnProcesses::Work> works;
    for (const std::string& device : devices) {
        works.emplace_back([&bundle, device, extent] { return look(bundle, device, extent); });
    }
    return works;
}

} // namespace

ScreenLook::ScreenLook(const PreparedBundle& bundle, std::vector<std::string> devices, ScreenExtent extent)
    : m_bundle(bundle.folder.string()), m_devices(std::move(devices)), m_looks(looks(bundle, m_devices, extent)) {}

Findings ScreenLook::finish() {
    const std::vector<OwnOutcome> outcomes = m_looks.finish();
    std::vector<ScreenFinding> found;
    Findings findings;
    for (std::size_t i = 0; i < m_devices.size(); ++i) {
        const std::vector<ScreenFinding> more = readScreenFindings(outcomes[i].text);
        found.insert(found.end(), more.begin(), more.end());
        if (!outcomes[i].problem.empty()) {
            findings.push_back(
                findingOf("screen.stopped", m_bundle, std::nullopt,
                          "the screen cannot be shown on the device " + m_devices[i] + ": " + outcomes[i].problem));
        }
    }
    const Findings joined = joinScreenFindings(found, m_devices.size());
    findings.insert(findings.end(), joined.begin(), joined.end());
    return findings;
}

Findings ScreenLook::tellNews() {
    Findings findings = finish();
    if (const auto known = readKnownFindings(usualKnownFindings())) {
        static_cast<void>(takeKnownOut(findings, known.value()));
    }
    tidy(findings);
    for (Finding& finding : findings) {
        finding.severity = Severity::warning;
    }
    tell(findings);
    return findings;
}

fs::path usualKnownFindings() {
    return inTree("resources/known-findings.json");
}
