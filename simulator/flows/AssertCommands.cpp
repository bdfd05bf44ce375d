#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSURL.h"
#include "platform/foundation/Nearest.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowTable.h"
#include "simulator/flows/FlowValue.h"
#include "simulator/pictures/PictureFile.h"

#include <filesystem>

namespace {

std::string inLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += "\n      " + line;
    }
    return lines.empty() ? " none" : text;
}

/// The failure, unless what was expected is so.
std::optional<Failure> expect(bool isSo, std::string otherwise) {
    return isSo ? std::nullopt : std::optional(Failure{std::move(otherwise)});
}

std::optional<Failure> compareItem(const NSURLComponents& link, const std::string& name, const std::string& expected) {
    for (const NSURLQueryItem& item : link.queryItems) {
        if (item.name == name) {
            const std::string found = item.value.value_or("");
            return expect(found == expected, "the link's " + name + " is '" + found + "', not '" + expected + "'");
        }
    }
    std::vector<std::string> names;
    for (const NSURLQueryItem& item : link.queryItems) {
        names.push_back(item.name);
    }
    return Failure{"the link has no item '" + name + "'" + suggestion(name, names) +
                   "; its items are:" + inLines(names)};
}

/// Compares the next link that was opened.
FlowAction withNextLink(std::function<std::optional<Failure>(const NSURL&)> compare) {
    return [compare = std::move(compare)](FlowPlayer& player) -> std::optional<Failure> {
        const std::optional<NSURL> link = player.nextLink();
        return link ? compare(*link) : Failure{"no link was opened since the last assertLink"};
    };
}

FlowAction compareItems(const std::vector<std::pair<std::string, std::string>>& items) {
    return withNextLink([items](const NSURL& link) -> std::optional<Failure> {
        const NSURLComponents parts = NSURLComponents::componentsWithURL(link);
        for (const auto& [name, expected] : items) {
            if (std::optional<Failure> difference = compareItem(parts, name, expected)) {
                return difference;
            }
        }
        return std::nullopt;
    });
}

/// The first line in which two trees differ.
std::string firstDifference(const std::string& expected, const std::string& actual) {
    std::size_t start = 0;
    int line = 1;
    for (std::size_t i = 0; i < expected.size() && i < actual.size() && expected[i] == actual[i]; ++i) {
        if (expected[i] == '\n') {
            start = i + 1;
            ++line;
        }
    }
    const auto lineAt = [start](const std::string& text) {
        return start < text.size() ? text.substr(start, text.find('\n', start) - start) : std::string("(nothing)");
    };
    return "line " + std::to_string(line) + ":\n      expected " + lineAt(expected) + "\n      found    " +
           lineAt(actual);
}

FlowAction makeAssertVisible(const FlowValue& value) {
    return [selector = value.selector()](FlowPlayer& player) {
        return player.waitForElement(selector) ? std::nullopt : std::optional(player.missing(selector));
    };
}

FlowAction makeAssertNotVisible(const FlowValue& value) {
    return [selector = value.selector()](FlowPlayer& player) {
        const bool isGone = player.waitUntil([&] { return !player.find(selector); });
        return isGone ? std::nullopt : std::optional(FlowPlayer::unwanted(selector));
    };
}

FlowAction makeAssertLink(const FlowValue& value) {
    if (value.isMap()) {
        return compareItems(value.values());
    }
    return withNextLink([expected = value.text()](const NSURL& link) {
        return expect(link.absoluteString() == expected,
                      "the link is\n      " + link.absoluteString() + "\n   not\n      " + expected);
    });
}

FlowAction makeAssertDebug(const FlowValue& value) {
    return [expected = value.texts()](FlowPlayer& player) {
        const std::vector<std::string> lines = player.takeDebugLines();
        return expect(lines == expected,
                      "the debug lines are:" + inLines(lines) + "\n   expected:" + inLines(expected));
    };
}

FlowAction makeAssertTree(const FlowValue& value) {
    const std::filesystem::path path = value.reading().besideIt(value.text());
    return [path](FlowPlayer& player) -> std::optional<Failure> {
        const std::string start = (path.parent_path() / path.stem()).string();
        const std::string golden = player.goldenFile(start, path.extension().string());
        const std::string tree = describeTree(player.host().window(), TreeDetail::stable);
        const Goldens goldens = player.pictures().goldens;
        std::error_code error;
        if (goldens == Goldens::renew) {
            return writeWholeFile(tree, golden);
        }
        if (!std::filesystem::exists(golden, error)) {
            return missingGolden(golden, goldens, [&] { return writeWholeFile(tree, golden); });
        }
        const Result<std::string> expected = readWholeFile(golden);
        if (!expected) {
            return expected.failure();
        }
        return expect(tree == expected.value(),
                      "the view tree is not that of " + golden + ", " + firstDifference(expected.value(), tree));
    };
}

FlowAction makeAssertStyleRequests(const FlowValue& value) {
    return [expected = value.number()](FlowPlayer& player) {
        const int requests = static_cast<int>(player.host().styleRequests().size());
        return expect(requests == expected, "the extension asked for a presentation style " + std::to_string(requests) +
                                                " times, not " + std::to_string(expected));
    };
}

const FlowCommands commands{
    {"assertVisible",
     {{FlowType::name}},
     selectorKeys(),
     "an element is on the screen, or appears within seven seconds",
     {"assertVisible: Slow Burn", "assertVisible: {id: lblDropDown, text: Adult (18+)}"},
     makeAssertVisible},
    {"assertNotVisible",
     {{FlowType::name}},
     selectorKeys(),
     "none is, or it goes within seven seconds",
     {"assertNotVisible: Warm-Up Round"},
     makeAssertNotVisible},
    {"assertLink",
     {{FlowType::name}, {FlowType::values}},
     {},
     "the next link that was opened, whole or by decoded items",
     {"assertLink: {sectionItem: Hold My Gaze}"},
     makeAssertLink},
    {"assertDebug",
     {{FlowType::texts}},
     {},
     "all debug lines since the last `assertDebug`",
     {"assertDebug: [willBecomeActive]"},
     makeAssertDebug},
    {"assertTree",
     {{FlowType::name}},
     {},
     "the view tree is that of the golden file beside the flow",
     {"assertTree: tree.txt"},
     makeAssertTree},
    {"assertStyleRequests",
     {{FlowType::number}},
     {},
     "how often the extension has asked for a presentation",
     {"assertStyleRequests: 1"},
     makeAssertStyleRequests},
};

} // namespace

const FlowCommands& assertCommands() {
    return commands;
}
