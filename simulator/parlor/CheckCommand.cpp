#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Nearest.h"
#include "platform/graphics/PNG.h"
#include "platform/uikit/window/UIScreen.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/check/IconNames.h"
#include "simulator/check/IconSheet.h"
#include "simulator/check/KnownFindings.h"
#include "simulator/check/PathCheck.h"
#include "simulator/check/Rules.h"
#include "simulator/check/ScreenCheck.h"
#include "simulator/parlor/OwnProcess.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/pictures/PictureFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* examples =
    "Examples:\n"
    "  parlor check my-list.json                   your list: every mistake, at its place\n"
    "  parlor check                                the whole bundle, and the flows in flows/\n"
    "  parlor check resources/ModeTblCell.xib      one interface document\n"
    "  parlor check --icons                        the icons that lists can name\n"
    "  parlor check --rules                        what is looked for\n"
    "  parlor check --off content.title-doubled    without one of the rules\n"
    "\n"
    "Exit status: 0 nothing wrong but warnings, 1 errors (with --strict warnings, too), 2 wrong usage.\n";

struct CheckOptions {
    std::vector<std::string> paths;
    std::string bundle; // empty: the one that was built beside the program
    std::string format = "text";
    std::vector<std::string> off;
    bool strict = false;
    bool listRules = false;
    bool listIcons = false;
    std::string sheet;       // where to put a picture of the icons; empty: nowhere
    std::string known;       // file of known findings; empty: the one beside the program
    bool showsKnown = false; // as if they were not known
};

/// Devices on which the screen is looked at, from the smallest.
constexpr std::array devices{"se", "8", "8plus", "15", "15max"};

TextStyle terminalStyle() {
    winsize size{};
    const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    const bool hasSize = isTerminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    const char* noColor = std::getenv("NO_COLOR");
    TextStyle style;
    style.columns = hasSize ? size.ws_col : style.columns;
    style.colored = isTerminal && (noColor == nullptr || *noColor == '\0');
    return style;
}

CommandResult print(const std::string& text, Findings findings) {
    if (!(std::cout << text << std::flush)) {
        return Failure{"standard output cannot be written"};
    }
    return findings;
}

/// "content" stands for all rules that begin with "content."
bool isOff(const Finding& finding, const std::vector<std::string>& off) {
    return std::any_of(off.begin(), off.end(), [&](const std::string& rule) {
        return finding.rule == rule || finding.rule.starts_with(rule + ".");
    });
}

std::string unknownRule(const std::string& name) {
    std::vector<std::string> known;
    for (const Rule& rule : rules()) {
        const std::string id(rule.id);
        if (id == name || id.starts_with(name + ".")) {
            return "";
        }
        known.push_back(id);
    }
    return "there is no rule '" + name + "'" + suggestion(name, known);
}

std::string knownText(std::size_t count) {
    return count == 0 ? "" : "Left out, as known-findings.json explains: " + std::to_string(count) + ".\n";
}

std::string reportOf(const CheckedFiles& checked, const std::string& format) {
    if (format == "json") {
        return jsonReport(checked.findings, checked.count);
    }
    return format == "junit" ? junitReport(checked.findings, checked.count)
                             : textReport(checked.findings, checked.count, terminalStyle()) + knownText(checked.known);
}

/// A folder with an Info.plist is a bundle, and is then the main one.
bool isBundle(const std::string& path) {
    std::error_code error;
    return fs::exists(fs::path(path) / "Info.plist", error);
}

void join(CheckedFiles& all, const CheckedFiles& more) {
    all.findings.insert(all.findings.end(), more.findings.begin(), more.findings.end());
    all.count += more.count;
}

/// A folder that goes with the process.
class WorkFolder {
public:
    WorkFolder() {
        std::string name = (fs::temp_directory_path() / "parlor-check-XXXXXX").string();
        m_path = mkdtemp(name.data()) != nullptr ? name : "";
    }
    ~WorkFolder() {
        std::error_code error;
        fs::remove_all(m_path, error);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    [[nodiscard]] fs::path file(const std::string& name) const { return fs::path(m_path) / name; }

private:
    std::string m_path;
};

/// The screen of the main bundle on every device, each in a process of its own.
Findings checkScreens() {
    const std::string bundle = NSBundle::mainBundle().bundlePath().string();
    const WorkFolder folder;
    std::vector<std::vector<std::string>> lists;
    for (const std::string device : devices) {
        lists.push_back({"check-screen", bundle, device, folder.file(device).string()});
    }
    static_cast<void>(runInOwnProcesses(lists));
    std::vector<ScreenFinding> found;
    Findings findings;
    for (const std::string device : devices) {
        const Result<std::string> text = readWholeFile(folder.file(device));
        const std::vector<ScreenFinding> more = text ? readScreenFindings(text.value()) : std::vector<ScreenFinding>();
        found.insert(found.end(), more.begin(), more.end());
        if (!text) {
            findings.push_back(findingOf("screen.stopped", bundle, std::nullopt,
                                         "the screen cannot be shown on the device " + device + ": the program stops"));
        }
    }
    const Findings joined = joinScreenFindings(found, devices.size());
    findings.insert(findings.end(), joined.begin(), joined.end());
    return findings;
}

/// The screen is looked at when all that it is made from is sound.
CheckedFiles checkBundleAndScreens() {
    CheckedFiles checked = checkWholeBundle();
    const bool canBeShown = std::none_of(checked.findings.begin(), checked.findings.end(), [](const Finding& finding) {
        return finding.severity == Severity::error && !finding.rule.starts_with("content.");
    });
    if (canBeShown) {
        const Findings onScreen = checkScreens();
        checked.findings.insert(checked.findings.end(), onScreen.begin(), onScreen.end());
    }
    return checked;
}

CheckedFiles checkAll(const CheckOptions& options) {
    CheckedFiles checked;
    if (options.paths.empty()) {
        checked = checkBundleAndScreens();
        join(checked, checkFlowsIn("flows"));
    }
    for (const std::string& path : options.paths) {
        if (isBundle(path)) {
            openExtensionBundle(path);
            join(checked, checkBundleAndScreens());
        } else {
            join(checked, checkPaths({path}));
        }
    }
    std::erase_if(checked.findings, [&](const Finding& finding) { return isOff(finding, options.off); });
    tidy(checked.findings);
    return checked;
}

CommandResult listIcons(const std::string& sheet) {
    const std::vector<std::string> icons = iconNames();
    if (!sheet.empty()) {
        std::error_code error;
        if (fs::exists(sheet, error) && !readPNGSize(sheet)) {
            return Failure{sheet + " exists and is no PNG picture; it is left alone"};
        }
        const std::optional<Failure> failure = savePicture(iconSheet(icons), sheet);
        if (failure) {
            return *failure;
        }
        std::cerr << "parlor: picture " << sheet << '\n';
    }
    std::string names;
    for (const std::string& name : icons) {
        names += name + "\n";
    }
    return print(names, {});
}

CommandResult runCheck(const CheckOptions& options) {
    if (options.listRules) {
        return print(options.format == "markdown" ? rulesPage() : rulesText(), {});
    }
    const fs::path bundle = options.bundle.empty() ? usualBundle() : fs::path(options.bundle);
    if (!isBundle(bundle.string())) {
        return Failure{bundle.string() + " is no extension bundle: it has no Info.plist"};
    }
    openExtensionBundle(bundle);
    if (options.listIcons) {
        return listIcons(options.sheet);
    }
    const fs::path knownFile =
        options.known.empty() ? inTree("resources/known-findings.json") : fs::path(options.known);
    const Result<std::vector<KnownFinding>> known = readKnownFindings(knownFile);
    if (!known) {
        return known.failure();
    }
    CheckedFiles checked = checkAll(options);
    checked.known = options.showsKnown ? 0 : takeKnownOut(checked.findings, known.value());
    const std::string report = reportOf(checked, options.format);
    for (Finding& finding : checked.findings) {
        finding.severity = options.strict ? Severity::error : finding.severity;
    }
    return print(report, std::move(checked.findings));
}

} // namespace

ParlorCommand addCheckCommand(CLI::App& app) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* line = app.add_subcommand("check", "Tells every mistake of lists, interface files, catalogue and flows");
    line->add_option("path", options->paths,
                     "Lists, interface documents, catalogues, flows, bundles, or folders of them (default: the whole "
                     "bundle, and flows/)")
        ->type_name("PATH");
    line->add_option("--bundle", options->bundle, "The extension's bundle (default: the one beside this program)")
        ->type_name("DIR");
    line->add_option("--format", options->format, "text (default), json or junit")
        ->check(CLI::IsMember({"text", "json", "junit", "markdown"}))
        ->option_text("FORMAT");
    line->add_option("--off", options->off, "Leaves a rule out, or all of a kind (\"content\"); may be repeated")
        ->check(unknownRule)
        ->type_name("RULE");
    line->add_flag("--strict", options->strict, "Warnings count as errors");
    line->add_flag("--rules", options->listRules, "Lists every rule, with an example, and checks nothing");
    line->add_flag("--icons", options->listIcons, "Lists the icons that lists can name, and checks nothing");
    line->add_option("-o,--output", options->sheet, "With --icons: a PNG file for a picture of them all")
        ->type_name("FILE");
    line->add_option("--known", options->known, "A file of findings that are there on purpose")->type_name("FILE");
    line->add_flag("--with-known", options->showsKnown, "Also tells those");
    line->footer(examples);
    return {line, [options] { return runCheck(*options); }};
}

/// For checkScreens() alone; nobody is told of it.
ParlorCommand addCheckScreenCommand(CLI::App& app) {
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::App* line = app.add_subcommand("check-screen", "")->group("");
    line->add_option("words", *words, "Bundle, device, file")->expected(3);
    return {line, [words]() -> CommandResult {
                const Result<Device> device = deviceNamed(words->at(1));
                if (!device || std::freopen("/dev/null", "w", stdout) == nullptr) {
                    return Failure{"the screen cannot be checked"};
                }
                openExtensionBundle(words->at(0));
                UIScreen::mainScreen().configure(device.value().size, device.value().scale);
                const std::string text = screenFindingsText(checkScreen(device.value()));
                const std::optional<Failure> failure = writeWholeFile(text, words->at(2));
                return failure ? CommandResult(*failure) : Findings();
            }};
}
