#include "simulator/check/BundleCheck.h"

#include "content/CurrentOption.h"
#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Nearest.h"
#include "platform/interface/InterfaceElement.h"
#include "simulator/check/ContentCheck.h"
#include "simulator/check/InterfaceCheck.h"
#include "simulator/check/Rules.h"
#include "simulator/conversation/BundleSetup.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

void append(Findings& all, const Findings& more) {
    all.insert(all.end(), more.begin(), more.end());
}

/// Fails when the file is `needed` and cannot be read.
std::optional<Failure> addContent(CurrentOption option, const std::optional<std::string>& needed,
                                  BundleFindings& findings) {
    const NSBundle& bundle = NSBundle::mainBundle();
    const std::string name = rawValue(option) + ".json";
    const auto file = bundle.URLForResource(rawValue(option), "json");
    if (!file) {
        std::error_code error;
        const fs::path sources = bundle.bundlePath() / "content"; // of the sources: an assembled bundle has none
        const fs::path place = fs::is_directory(sources, error) ? sources : bundle.bundlePath();
        findings.all.push_back(findingOf("content.file-missing", (place / name).string(), std::nullopt,
                                         "there is no content file \"" + name + "\""));
        return std::nullopt;
    }
    ++findings.files;
    const Result<Findings> inFile = checkContent(*file);
    if (!inFile && needed == file) {
        return inFile.failure();
    }
    append(findings.all,
           inFile ? inFile.value()
                  : Findings{findingOf("content.unreadable", file->string(), std::nullopt, inFile.failure().what)});
    return std::nullopt;
}

/// Lists that nobody reads.
void addStrangers(BundleFindings& findings) {
    for (const fs::path& file : bundleFiles(NSBundle::mainBundle().bundlePath())) {
        if (isNamedAsList(file) && file.filename() != "known-findings.json") {
            append(findings.all, checkContentName(file, ContentPlace::bundle));
        }
    }
}

/// The value of a key of a property list.
Result<const InterfaceElement*> valueAt(const InterfaceElement& dictionary, const std::string& key) {
    const std::vector<InterfaceElement>& entries = dictionary.children;
    std::string near;
    std::optional<TextPlace> place = dictionary.place;
    for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
        if (entries[i].name == "key" && entries[i].text == key) {
            return &entries[i + 1];
        }
        if (entries[i].name == "key" && !suggestion(entries[i].text, {key}).empty()) {
            near = "; \"" + entries[i].text + "\" is written for it";
            place = entries[i].place;
        }
    }
    return Failure{"the key \"" + key + "\" is missing" + near, place};
}

/// The element that names the storyboard to begin with.
Result<InterfaceElement> storyboardEntry(const fs::path& info) {
    const Result<std::string> text = readWholeFile(info);
    if (!text) {
        return text.failure();
    }
    const Result<InterfaceElement> root = readElements(text.value(), DocumentType::passedOver);
    if (!root) {
        return root.failure();
    }
    const InterfaceElement* dictionary = root.value().child("dict");
    if (root.value().name != "plist" || dictionary == nullptr) {
        return root.value().failure("no property list, which holds a <dict> in <plist>");
    }
    const Result<const InterfaceElement*> extension = valueAt(*dictionary, "NSExtension");
    const Result<const InterfaceElement*> entry =
        extension ? valueAt(*extension.value(), "NSExtensionMainStoryboard") : extension;
    if (!entry) {
        return entry.failure();
    }
    return *entry.value();
}

} // namespace

std::optional<Finding> faultOfInfo() {
    const NSBundle& bundle = NSBundle::mainBundle();
    const fs::path info = bundle.bundlePath() / "Info.plist";
    const Result<InterfaceElement> entry = storyboardEntry(info);
    if (!entry) {
        return findingOf("bundle.info", info.string(), entry.failure().place, entry.failure().what);
    }
    const std::string& name = entry.value().text;
    if (bundle.URLForResource(name, "storyboard")) {
        return std::nullopt;
    }
    std::vector<std::string> known;
    for (const fs::path& file : bundleFiles(bundle.bundlePath())) {
        if (file.extension() == ".storyboard") {
            known.push_back(file.stem().string());
        }
    }
    return findingOf("bundle.info", info.string(), entry.value().place,
                     "NSExtensionMainStoryboard names \"" + name + "\", which is not there" +
                         suggestionInQuotes(name, known));
}

Result<BundleFindings> checkMainBundle(const std::optional<std::string>& needed) {
    const NSBundle& bundle = NSBundle::mainBundle();
    if (const std::optional<Finding> fault = faultOfInfo()) {
        return Failure{fault->describe()};
    }
    const auto storyboard = bundle.URLForResource(mainStoryboardName().value_or(""), "storyboard");
    if (!storyboard) {
        return Failure{bundle.bundlePath().string() + " has no storyboard to begin with"};
    }
    InterfaceFindings inInterface = checkInterface(bundle, *storyboard);
    BundleFindings findings{std::move(inInterface.all), true, inInterface.files};
    findings.canLaunch = !hasErrors(findings.all);
    for (const CurrentOption option : contentLoadOrder()) {
        if (const std::optional<Failure> failure = addContent(option, needed, findings)) {
            return *failure;
        }
    }
    addStrangers(findings);
    tidy(findings.all);
    return findings;
}
