#include "simulator/conversation/ConversationHost.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowCommands.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSURLComponents.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/Selector.h"

#include <filesystem>
#include <fstream>

namespace {

std::string inLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += "\n      " + line;
    }
    return lines.empty() ? " none" : text;
}

Outcome compareItem(const NSURLComponents& link, const std::string& name, const std::string& expected) {
    for (const NSURLQueryItem& item : link.queryItems) {
        if (item.name == name) {
            const std::string found = item.value.value_or("");
            return found == expected ? Outcome()
                                     : Failure{"the link's " + name + " is '" + found + "', not '" + expected + "'"};
        }
    }
    return Failure{"the link has no item '" + name + "'"};
}

Outcome noLink() {
    return Failure{"no link was opened since the last assertLink"};
}

FlowAction readLinkItems(const FlowValue& value) {
    std::vector<std::pair<std::string, std::string>> items;
    for (const FlowEntry& entry : value.node().entries) {
        const auto item = value.find(entry.key.text);
        items.emplace_back(entry.key.text, item->isNothing() ? "" : item->text());
    }
    return [items](FlowPlayer& player) -> Outcome {
        const std::optional<NSURL> link = player.nextLink();
        if (!link) {
            return noLink();
        }
        const NSURLComponents parts = NSURLComponents::componentsWithURL(*link);
        for (const auto& [name, expected] : items) {
            if (Outcome difference = compareItem(parts, name, expected)) {
                return difference;
            }
        }
        return std::nullopt;
    };
}

Outcome recordTree(const std::string& path, const std::string& tree) {
    std::ofstream file(path, std::ios::binary);
    file << tree;
    file.close();
    return Failure{file ? "there was no " + path + ": it has been recorded; look at it, then play the flow again"
                        : path + " cannot be written"};
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

} // namespace

FlowAction readAssertVisible(const FlowValue& value) {
    return [selector = readSelector(value)](FlowPlayer& player) -> Outcome {
        return player.waitForElement(selector) ? Outcome() : player.missing(selector);
    };
}

FlowAction readAssertNotVisible(const FlowValue& value) {
    return [selector = readSelector(value)](FlowPlayer& player) -> Outcome {
        const auto gone = [&] { return !Screen(player.host().window()).find(selector); };
        return player.waitUntil(gone) ? Outcome() : Failure{describe(selector) + " is visible and should not be"};
    };
}

FlowAction readAssertLink(const FlowValue& value) {
    if (value.isMap()) {
        return readLinkItems(value);
    }
    return [expected = value.name()](FlowPlayer& player) -> Outcome {
        const std::optional<NSURL> link = player.nextLink();
        if (!link) {
            return noLink();
        }
        return link->absoluteString() == expected
                   ? Outcome()
                   : Failure{"the link is\n      " + link->absoluteString() + "\n   not\n      " + expected};
    };
}

FlowAction readAssertDebug(const FlowValue& value) {
    return [expected = value.texts()](FlowPlayer& player) -> Outcome {
        const std::vector<std::string> lines = player.takeDebugLines();
        return lines == expected
                   ? Outcome()
                   : Failure{"the debug lines are:" + inLines(lines) + "\n   expected:" + inLines(expected)};
    };
}

FlowAction readAssertTree(const FlowValue& value) {
    return [name = value.name()](FlowPlayer& player) -> Outcome {
        const std::string path = player.besideFlow(name);
        const std::string tree = describeTree(player.host().window(), TreeDetail::stable);
        std::error_code error;
        if (!std::filesystem::exists(path, error)) {
            return recordTree(path, tree);
        }
        const Result<std::string> expected = readWholeFile(path);
        if (!expected) {
            return Failure{expected.failure().what};
        }
        return tree == expected.value()
                   ? Outcome()
                   : Failure{"the view tree is not that of " + path + ", " + firstDifference(expected.value(), tree)};
    };
}

FlowAction readAssertStyleRequests(const FlowValue& value) {
    return [expected = value.count()](FlowPlayer& player) -> Outcome {
        const int requests = static_cast<int>(player.host().styleRequests().size());
        return requests == expected ? Outcome()
                                    : Failure{"the extension asked for a presentation style " +
                                              std::to_string(requests) + " times, not " + std::to_string(expected)};
    };
}
