#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Nearest.h"
#include "simulator/check/CatalogCheck.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/check/IconSheet.h"
#include "simulator/check/KnownFindings.h"
#include "simulator/check/PathCheck.h"
#include "simulator/check/Rules.h"
#include "simulator/parlor/ScreenLook.h"
#include "simulator/pictures/PictureFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
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

constexpr const char* withoutScreenText = "Layout and accessibility are looked at with a whole bundle.\n";

std::string reportOf(const CheckedFiles& checked, const std::string& format) {
    if (format == "json") {
        return jsonReport(checked.findings, checked.count);
    }
    return format == "junit" ? junitReport(checked.findings, checked.count)
                             : textReport(checked.findings, checked.count, terminalStyle()) + knownText(checked.known) +
                                   (checked.isWithoutScreen ? withoutScreenText : "");
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

/// The contrast of texts whose colours cannot be read would be that of others.
void leaveOutContrasts(Findings& findings, const std::string& bundle) {
    const auto isContrast = [](const Finding& finding) { return finding.rule == "a11y.contrast"; };
    if (std::erase_if(findings, isContrast) > 0) {
        findings.push_back(findingOf("a11y.unmeasured", bundle, std::nullopt,
                                     "the contrast is not measured before the sets of the catalogue can be read"));
    }
}

/// The screen is looked at when all that it is made from is sound.
CheckedFiles checkBundleAndScreens(const fs::path& folder) {
    const fs::path bundle = folder; // may be that of the bundle that is open until now
    openExtensionBundle(bundle);
    CheckedFiles checked = checkWholeBundle();
    const auto any = [&](auto condition) {
        return std::any_of(checked.findings.begin(), checked.findings.end(), condition);
    };
    if (any([](const Finding& finding) {
            return finding.severity == Severity::error && !finding.rule.starts_with("content.");
        })) {
        checked.findings.push_back(findingOf("screen.unmeasured", bundle.string(), std::nullopt,
                                             "layout and accessibility are not looked at before the errors of "
                                             "interface files are mended"));
        return checked;
    }
    PreparedBundle shown;
    shown.folder = bundle;
    Findings onScreen = ScreenLook(shown, {devices.begin(), devices.end()}, ScreenExtent::everything).finish();
    if (any([](const Finding& finding) { return finding.rule == "catalog.set"; })) {
        leaveOutContrasts(onScreen, bundle.string());
    }
    checked.findings.insert(checked.findings.end(), onScreen.begin(), onScreen.end());
    return checked;
}

CheckedFiles checkAll(const CheckOptions& options) {
    CheckedFiles checked;
    if (options.paths.empty()) {
        checked = checkBundleAndScreens(NSBundle::mainBundle().bundlePath());
        join(checked, checkFlowsIn("flows"));
    }
    for (const std::string& path : options.paths) {
        if (isBundle(path)) {
            join(checked, checkBundleAndScreens(path));
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
        std::optional<Failure> failure = refusalOfPicture(sheet);
        if (!failure) {
            failure = savePicture(iconSheet(icons), sheet);
        }
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
    const fs::path knownFile = options.known.empty() ? usualKnownFindings() : fs::path(options.known);
    const Result<std::vector<KnownFinding>> known = readKnownFindings(knownFile);
    if (!known) {
        return known.failure();
    }
    CheckedFiles checked = checkAll(options);
    checked.isWithoutScreen = std::any_of(options.paths.begin(), options.paths.end(), [](const std::string& path) {
        return path.ends_with(".xib") || path.ends_with(".storyboard") || path.ends_with(".xcassets");
    });
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
        ->check(oneOf({"text", "json", "junit", "markdown"}))
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
