#include "simulator/check/FoldedFindings.h"

#include "simulator/check/Rules.h"

#include <map>
#include <tuple>

namespace {

constexpr std::size_t few = 3;

/// `<label>: what` for `<label id="l">: what`. Of places that are left open, no more than which: one such view leaves
/// others open that hang on it.
std::string sayingOf(const Finding& finding) {
    const std::string& what = finding.what;
    const std::size_t begin = what.find(" id=\"");
    const std::size_t end = what.find("\">", begin);
    const bool hasId = what.starts_with('<') && begin < what.find('>') && end != std::string::npos;
    const std::string said = hasId ? what.substr(end + 1) : what;
    return hasId && finding.rule != "layout.ambiguous" ? what.substr(0, begin) + said : said;
}

std::string linesOfOthers(const Findings& group) {
    std::string lines;
    for (std::size_t i = 1; i <= few; ++i) {
        lines += (i == 1 ? "" : ", ") + std::to_string(group[i].place.value_or(TextPlace{}).line);
    }
    const std::size_t others = group.size() - 1;
    return " (and " + std::to_string(others) + " times more: lines " + lines + (others > few ? " …)" : ")");
}

} // namespace

Findings folded(const Findings& findings) {
    std::map<std::tuple<std::string, std::string, std::string>, Findings> groups;
    for (const Finding& finding : findings) {
        groups[{finding.path, finding.rule, sayingOf(finding)}].push_back(finding);
    }
    Findings all;
    for (auto& [said, group] : groups) {
        tidy(group);
        if (group.size() > few) {
            group.front().what += linesOfOthers(group);
            group.resize(1);
        }
        all.insert(all.end(), group.begin(), group.end());
    }
    tidy(all);
    return all;
}
