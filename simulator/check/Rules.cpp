#include "simulator/check/Rules.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/Nearest.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr auto error = Severity::error;
constexpr auto warning = Severity::warning;

constexpr Rule table[] = {
    {"content.unreadable", error, "The file cannot be opened, or it is no ordinary file.",
     "The file “Family.json” couldn’t be opened: Permission denied"},
    {"content.encoding", error, "Content files are UTF-8. Choose that encoding when your editor saves the file.",
     "the file is UTF-16; save it as UTF-8"},
    {"content.empty", error, "An empty file is no list; a list without sections is written [].",
     "the file is empty; a list without sections is []"},
    {"content.comma", error, "A comma stands between two parts of a list, and not after the last.",
     "a comma is missing after this"},
    {"content.quotes", error, "Keys and texts stand in straight double quotes; one inside a text is written \\\".",
     "write the straight quotes \" around a text, not “"},
    {"content.word", error, "The only words without quotes are true and false, in small letters.",
     "write true, not True"},
    {"content.comment", error, "A content file has no place for comments.",
     "a list has no comments; take this one out"},
    {"content.text", error,
     "A text stands in one line. Line breaks, tabs and half characters need to be written another way.",
     "a text stands in one line; write \\n where its next line begins"},
    {"content.bracket", error, "Every [ needs its ] and every { its }, in the right order.",
     "this { is not closed; write } before the comma that ends line 6"},
    {"content.root", error, "A file holds one list of sections.",
     "the file must hold a list of sections, [ … ], but holds a text"},
    {"content.syntax", error, "Something else that JSON does not know.", "write : between a key and its value, not ="},
    {"content.key-missing", error,
     "Every section and every item needs all of its keys; otherwise the whole file is left out.",
     "section 1, item 2: \"subtitle\" is missing"},
    {"content.key-misspelt", error, "A key that is nearly one that is missing.",
     "section 1, item 2: \"titel\" is no key of an item; did you mean \"title\"?"},
    {"content.key-unknown", warning, "A key that nobody reads. It does no harm.",
     "section 1, item 2: \"colour\" is no key of an item, and is passed over"},
    {"content.key-doubled", warning, "Of two equal keys the last one counts.",
     "section 1, item 2: \"title\" stands here twice; the last one counts"},
    {"content.key-type", error, "A value of another kind than the key needs.",
     "section 1, item 2: \"isSelected\" must be true or false, but is the text \"true\"; take its quotes away"},
    {"content.level", error, "A section stands among items, or an item among sections.",
     "section 2, item 3: this section stands among the items; close those before it with ] }"},
    {"content.icon", warning, "The row is shown without an icon. `parlor check --icons` lists them all.",
     "there is no icon \"icon_dyce\"; did you mean \"icon_dice\"?"},
    {"content.title-empty", warning, "A row without a title cannot be told from others.", "the title is empty"},
    {"content.title-doubled", warning, "Two rows of a section, or two sections, cannot be told apart.",
     "the title \"Easy Going\" stands in line 5 already"},
    {"content.title-cut", warning, "The text does not fit the smallest phone, and its end is not shown.",
     "the section title is cut off on the device se: it needs 410 points and has 268"},
    {"content.characters", warning, "A character that none of the fonts has is shown as a box.",
     "no font here has the character U+16A0 (ᚠ)"},
    {"content.file-name", warning, "Only files with the exact name of a group or game type are read.",
     "no list of the extension is named \"Freinds.json\", so it is not read; did you mean \"Friends.json\"?"},
    {"content.file-missing", warning, "A list that is not there is shown as empty.",
     "there is no content file \"Couple.json\""},
    {"interface.unreadable", error, "The file cannot be opened, is no XML or no interface document for the phone.",
     "<subviews> is not closed; </view> in line 12 closes what is around it"},
    {"interface.refused", error, "The phone, and this program, would stop when the file is loaded.",
     "<label id=\"l\">: numberOfLines is \"many\", a number is expected"},
    {"interface.ignored", warning, "Something that has no effect here.", "<segue id=\"s\">: segues are ignored"},
    {"interface.image", warning, "The catalogue has no image of that name, so that nothing is shown.",
     "<imageView id=\"i\">: the catalogue has no image \"leaf\""},
    {"interface.color", warning, "The catalogue has no colour of that name; the file's own is used, or none.",
     "<color>: the catalogue has no colour \"Green\""},
    {"interface.ampersand", error, "The phone's tools refuse a file with a & that begins no entity.",
     "write &amp; for the character &"},
    {"interface.double-id", error, "What refers to the id can mean either of two objects.",
     "<label id=\"l\">: the <label> in line 12 has the id \"l\", too"},
    {"interface.outlet", error, "The program stops when the class first uses an outlet that nobody connected.",
     "<viewController id=\"c\">: the outlet \"tableView\" of CategoriesVC is not connected"},
    {"interface.reuse-identifier", error,
     "A table refuses a cell whose nib names another reuse identifier than its class.",
     "<tableViewCell id=\"c\">: the reuse identifier \"Cell\" is another than the class ModeTblCell"},
    {"interface.missing", error, "The program stops when it asks for a nib or scene that is not there.",
     "CategoriesVC asks for the nib \"ModeTblCell\", which is not there"},
    {"interface.unknown-element", warning, "An element that nobody reads, often a misspelt one.",
     "<contraints>: no interface document has such an element"},
    {"interface.unknown-attribute", warning, "An attribute that nobody reads, often a misspelt one.",
     "<label id=\"l\">: the attribute \"numberOfLine\" is not known"},
    {"layout.conflict", error, "Constraints that cannot all hold; one of them is left out.",
     "a-01-top (Main.storyboard:12) contradicts other required constraints: a-02-hei (Main.storyboard:14)"},
    {"layout.ambiguous", warning, "The constraints leave open where a view stands or how large it is.",
     "<label id=\"l\"> has no definite x (on every device)"},
    {"layout.text-cut", warning, "A text of the interface has no room.",
     "<label id=\"l\">: the text is cut off: \"Truths\" needs 140 points (280 pixels) in one line, and has 97 "
     "points (on se)"},
    {"layout.outside", warning, "A view stands partly outside of the one that it is in.",
     "<view id=\"v\">: the view stands out of <view id=\"p\">: by 12 points (24 pixels) at the right"},
    {"screen.stopped", error, "The program stopped while the screen was shown.",
     "the screen cannot be shown on the device se: the program stops"},
    {"screen.unmeasured", warning, "The screen was not looked at, as it cannot be shown.",
     "layout and accessibility are not looked at before the errors of interface files are mended"},
    {"a11y.target", warning, "A finger needs 44 x 44 points to tap.",
     "<button id=\"b\">: a finger needs 44 x 44 points: this is 30 x 30"},
    {"a11y.label", error, "Who cannot see a picture is told nothing of what it does.",
     "<button id=\"b\">: this can be tapped and has neither a text nor a label for assistive tools"},
    {"a11y.contrast", error, "Texts need a contrast of 4.5:1, from 24 points, or 18 points bold, of 3:1.",
     "<label id=\"l\">: #FFFFFF on #4DA289 has a contrast of 3.07:1, and needs 4.50:1"},
    {"a11y.unmeasured", warning, "What could not be measured; somebody has to look.",
     "<label id=\"l\">: the contrast is not measured: several colours lie under the text"},
    {"a11y.order", warning, "Assistive tools read in another order than the one that is seen.",
     "<label id=\"l\">: this is read after what stands below it"},
    {"catalog.scale", warning, "Phones have 1, 2 or 3 pixels a point.", "the scale \"4x\" is none of 1x, 2x, 3x"},
    {"catalog.dark", warning, "A text that keeps its colour in the dark may not be seen there.",
     "<label id=\"l\">: a text is painted in \"Ink\", which has no colour for the dark appearance"},
    {"flow.resource", warning, "A flow replaces something that is not there.",
     "the bundle has no resource 'Freinds.json'; did you mean \"Friends.json\"?"},
    {"flow.person", warning, "A message comes from somebody who is not in the conversation.",
     "'Z' is not in the conversation"},
    {"path.unknown", error, "Only lists, interface documents, catalogues, flows and folders of them can be checked.",
     "there is no such file or folder"},
    {"bundle.info", error, "Info.plist says where the extension begins.",
     "the key \"NSExtensionMainStoryboard\" is missing"},
    {"catalog.set", warning, "A set of the catalogue that cannot be read as it stands.",
     "the component \"red\" is no number"},
    {"catalog.file", warning, "A picture that a set names is missing, or is none.", "the file b.png is missing"},
    {"flow.unreadable", error, "The flow cannot be played.", "unknown command 'tapOnn'; did you mean tapOn?"},
};

} // namespace

std::span<const Rule> rules() {
    return table;
}

const Rule* ruleNamed(std::string_view id) {
    const auto found = std::find_if(rules().begin(), rules().end(), [&](const Rule& rule) { return rule.id == id; });
    return found == rules().end() ? nullptr : &*found;
}

Finding findingOf(std::string_view rule, std::string path, std::optional<TextPlace> place, std::string what) {
    const Rule* known = ruleNamed(rule);
    if (known == nullptr) {
        fatalError("there is no rule " + std::string(rule));
    }
    return {known->severity, std::move(path), place, std::move(what), std::string(rule)};
}

void nameRule(Findings& findings, std::string_view rule) {
    for (Finding& finding : findings) {
        if (finding.rule.empty()) {
            finding.rule = rule;
        }
    }
}

std::string inQuotes(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

std::string suggestionInQuotes(std::string_view wanted, const std::vector<std::string>& known) {
    const std::optional<std::string> nearest = nearestName(wanted, known);
    return nearest ? "; did you mean \"" + *nearest + "\"?" : "";
}

void tidy(Findings& findings) {
    const auto key = [](const Finding& finding) {
        return std::tie(finding.path, finding.place, finding.rule, finding.what);
    };
    std::stable_sort(findings.begin(), findings.end(),
                     [&](const Finding& one, const Finding& other) { return key(one) < key(other); });
    findings.erase(std::unique(findings.begin(), findings.end(),
                               [&](const Finding& one, const Finding& other) { return key(one) == key(other); }),
                   findings.end());
}
