#include "simulator/parlor/ScreenLook.h"

#include "platform/foundation/FileReading.h"
#include "simulator/check/KnownFindings.h"
#include "simulator/check/Rules.h"
#include "simulator/check/ScreenCheck.h"
#include "simulator/parlor/OwnProcess.h"
#include "simulator/pictures/PictureFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace fs = std::filesystem;

ScreenLook::ScreenLook(const BundleOptions& options, std::vector<std::string> devices, ScreenExtent extent)
    : m_bundle(bundleOf(options).string()), m_devices(std::move(devices)) {
    std::string name = (fs::temp_directory_path() / "parlor-look-XXXXXX").string();
    m_folder = mkdtemp(name.data()) != nullptr ? name : "";
    std::vector<std::vector<std::string>> lists;
    for (const std::string& device : m_devices) {
        std::vector<std::string>& list = lists.emplace_back(argumentsFor(options));
        list.insert(list.begin(), {"check-screen", file(device).string(), "--device", device});
        if (extent == ScreenExtent::everything) {
            list.emplace_back("--everything");
        }
    }
    m_work = std::async(std::launch::async, [lists] { return runInOwnProcesses(lists); });
}

ScreenLook::~ScreenLook() {
    if (m_work.valid()) {
        m_work.wait();
    }
    std::error_code error;
    fs::remove_all(m_folder, error);
}

Findings ScreenLook::finish() {
    static_cast<void>(m_work.get()); // a process that ends early leaves no file
    std::vector<ScreenFinding> found;
    Findings findings;
    for (const std::string& device : m_devices) {
        const Result<std::string> text = readWholeFile(file(device));
        const std::vector<ScreenFinding> more = text ? readScreenFindings(text.value()) : std::vector<ScreenFinding>();
        found.insert(found.end(), more.begin(), more.end());
        if (!text) {
            findings.push_back(findingOf("screen.stopped", m_bundle, std::nullopt,
                                         "the screen cannot be shown on the device " + device + ": the program stops"));
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

/// For ScreenLook alone; nobody is told of it.
ParlorCommand addCheckScreenCommand(CLI::App& app) {
    struct Options : BundleOptions {
        std::string file;
        bool everything = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* line = app.add_subcommand("check-screen", "")->group("");
    line->add_option("file", options->file)->required();
    line->add_flag("--everything", options->everything);
    addBundleOptions(*line, *options);
    addDeviceOption(*line, *options);
    addGroupOption(*line, *options);
    return {line, [options]() -> CommandResult {
                PreparedBundle bundle;
                bundle.folder = bundleOf(*options);
                std::optional<Failure> failure = bundle.fitTo(*options);
                FILE* nowhere = std::freopen("/dev/null", "w", stdout);
                if (!options->everything && nowhere != nullptr) {
                    nowhere = std::freopen("/dev/null", "w", stderr); // whoever plays says the same
                }
                if (failure || nowhere == nullptr) {
                    return failure.value_or(Failure{"the output cannot be closed"});
                }
                bundle.openFor(Flow{});
                const ScreenExtent extent = options->everything ? ScreenExtent::everything : ScreenExtent::opening;
                const std::vector<ScreenFinding> found = checkScreen(bundle.deviceFor(Flow{}), extent);
                failure = writeWholeFile(screenFindingsText(found), options->file);
                return failure ? CommandResult(*failure) : Findings();
            }};
}
