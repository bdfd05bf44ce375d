#include "platform/foundation/Nearest.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/check/IconNames.h"
#include "simulator/check/PathCheck.h"
#include "simulator/check/Rules.h"
#include "simulator/parlor/PreparedBundle.h"

#include <CLI/CLI.hpp>

#include <algorithm>
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
};

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

std::string reportOf(const CheckedFiles& checked, const std::string& format) {
    if (format == "json") {
        return jsonReport(checked.findings, checked.count);
    }
    return format == "junit" ? junitReport(checked.findings, checked.count)
                             : textReport(checked.findings, checked.count, terminalStyle());
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

CheckedFiles checkAll(const CheckOptions& options) {
    CheckedFiles checked;
    if (options.paths.empty()) {
        checked = checkWholeBundle();
        join(checked, checkFlowsIn("flows"));
    }
    for (const std::string& path : options.paths) {
        if (isBundle(path)) {
            openExtensionBundle(path);
            join(checked, checkWholeBundle());
        } else {
            join(checked, checkPaths({path}));
        }
    }
    std::erase_if(checked.findings, [&](const Finding& finding) { return isOff(finding, options.off); });
    tidy(checked.findings);
    return checked;
}

CommandResult runCheck(const CheckOptions& options) {
    if (options.listRules) {
        return print(options.format == "markdown" ? rulesPage() : rulesText(), {});
    }
    const fs::path bundle = options.bundle.empty() ? besideProgram("TruthsAndDares.appex") : fs::path(options.bundle);
    if (!isBundle(bundle.string())) {
        return Failure{bundle.string() + " is no extension bundle: it has no Info.plist"};
    }
    openExtensionBundle(bundle);
    if (options.listIcons) {
        std::string names;
        for (const std::string& name : iconNames()) {
            names += name + "\n";
        }
        return print(names, {});
    }
    CheckedFiles checked = checkAll(options);
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
    line->footer(examples);
    return {line, [options] { return runCheck(*options); }};
}
