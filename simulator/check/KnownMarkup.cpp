#include "simulator/check/KnownMarkup.h"

#include <map>
#include <sstream>

namespace {

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

const std::string ofObjects = "id key customClass customModule customModuleProvider userLabel sceneMemberID ";
const std::string ofViews =
    ofObjects + "contentMode opaque clipsSubviews hidden alpha tag userInteractionEnabled multipleTouchEnabled "
                "preservesSuperviewLayoutMargins insetsLayoutMarginsFromSafeArea layoutMarginsFollowReadableWidth "
                "horizontalHuggingPriority verticalHuggingPriority horizontalCompressionResistancePriority "
                "verticalCompressionResistancePriority restorationIdentifier semanticContentAttribute fixedFrame "
                "misplaced ambiguous verifyAmbiguity translatesAutoresizingMaskIntoConstraints autoresizesSubviews "
                "clearsContextBeforeDrawing placeholderIntrinsicWidth placeholderIntrinsicHeight simulatedAppContext "
                "appearanceType largeContentTitle showsLargeContentViewer ";
const std::string ofControls =
    ofViews + "contentHorizontalAlignment contentVerticalAlignment enabled selected highlighted springLoaded ";
const std::string ofScrolling =
    ofViews + "alwaysBounceVertical alwaysBounceHorizontal showsVerticalScrollIndicator bounces scrollEnabled "
              "showsHorizontalScrollIndicator pagingEnabled delaysContentTouches canCancelContentTouches "
              "keyboardDismissMode minimumZoomScale maximumZoomScale bouncesZoom directionalLockEnabled "
              "indicatorStyle contentInsetAdjustmentBehavior ";
const std::string ofControllers =
    ofObjects + "storyboardIdentifier title extendedLayoutIncludesOpaqueBars automaticallyAdjustsScrollViewInsets "
                "hidesBottomBarWhenPushed modalTransitionStyle modalPresentationStyle definesPresentationContext "
                "providesPresentationContextTransitionStyle autoresizesArchivedViewToFullSize wantsFullScreenLayout "
                "restorationIdentifier useStoryboardIdentifierAsRestorationIdentifier interfaceStyle "
                "navigationBarHidden toolbarHidden toolbarInteractionEnabled "
                "automaticallyAdjustsScrollIndicatorInsets clearsSelectionOnViewWillAppear ";

/// By element.
const std::map<std::string, std::string, std::less<>> attributeLists = {
    {"view", ofViews},
    {"label", ofViews + "text textAlignment lineBreakMode numberOfLines baselineAdjustment adjustsFontSizeToFit "
                        "minimumScaleFactor minimumFontSize adjustsFontForContentSizeCategory enabled "
                        "adjustsLetterSpacingToFitWidth preferredMaxLayoutWidth usesAttributedText highlighted"},
    {"imageView", ofViews + "image catalog highlightedImage highlighted symbolScale "
                            "adjustsImageSizeForAccessibilityContentSizeCategory"},
    {"control", ofControls},
    {"button", ofControls + "buttonType lineBreakMode adjustsImageWhenHighlighted adjustsImageWhenDisabled role "
                            "showsTouchWhenHighlighted reversesTitleShadowWhenHighlighted pointerInteraction "
                            "showsMenuAsPrimaryAction changesSelectionAsPrimaryAction"},
    {"textField", ofControls + "text placeholder borderStyle textAlignment minimumFontSize clearButtonMode "
                               "adjustsFontForContentSizeCategory clearsOnBeginEditing adjustsFontSizeToFit"},
    {"scrollView", ofScrolling},
    {"tableView", ofScrolling + "style dataMode separatorStyle rowHeight estimatedRowHeight sectionHeaderHeight "
                                "sectionFooterHeight estimatedSectionHeaderHeight estimatedSectionFooterHeight "
                                "allowsSelection allowsMultipleSelection allowsSelectionDuringEditing "
                                "allowsMultipleSelectionDuringEditing sectionIndexMinimumDisplayRowCount"},
    {"tableViewCell", ofViews + "reuseIdentifier selectionStyle style textLabel detailTextLabel imageView "
                                "accessoryType editingAccessoryType rowHeight indentationWidth indentationLevel "
                                "hidesAccessoryWhenEditing focusStyle shouldIndentWhileEditing "
                                "showsReorderControl"},
    {"tableViewCellContentView", ofViews + "tableViewCell"},
    {"viewController", ofControllers},
    {"navigationController", ofControllers},
    {"constraint", "id firstItem firstAttribute relation secondItem secondAttribute multiplier priority constant "
                   "placeholder symbolic identifier userLabel shouldBeArchived"},
    {"outlet", "id property destination"},
    {"action", "id selector destination eventType"},
    {"rect", "key x y width height"},
    {"autoresizingMask", "key widthSizable heightSizable flexibleMinX flexibleMaxX flexibleMinY flexibleMaxY"},
    {"fontDescription", "key type pointSize weight style name family size metaFont width"},
    {"color", "key red green blue alpha white colorSpace customColorSpace name systemColor "
              "cocoaTouchSystemColor xcode11CocoaTouchSystemColor catalog"},
    {"state", "key title image backgroundImage catalog"},
    {"accessibility", "key identifier label hint value"},
    {"userDefinedRuntimeAttribute", "type keyPath value"},
    {"integer", "key value"},
    {"real", "key value"},
};

/// By attribute, or by element and attribute.
const std::map<std::string, std::string> wordLists = {
    {"buttonType", "system roundedRect custom detailDisclosure infoLight infoDark contactAdd close"},
    {"button lineBreakMode", "tailTruncation wordWrap characterWrap middleTruncation headTruncation clip"},
    {"contentHorizontalAlignment", "center left right fill leading trailing"},
    {"contentVerticalAlignment", "center top bottom fill"},
    {"baselineAdjustment", "alignBaselines alignCenters none"},
    {"tableView style", "plain grouped insetGrouped"},
    {"selectionStyle", "none blue gray default"},
    {"accessoryType", "none disclosureIndicator detailDisclosureButton checkmark detailButton"},
    {"borderStyle", "none line bezel roundedRect"},
    {"keyboardDismissMode", "none onDrag interactive onDragWithAccessory interactiveWithAccessory"},
    {"opaque", "YES NO"},
    {"multipleTouchEnabled", "YES NO"},
    {"alwaysBounceVertical", "YES NO"},
    {"alwaysBounceHorizontal", "YES NO"},
    {"bounces", "YES NO"},
    {"pagingEnabled", "YES NO"},
    {"preservesSuperviewLayoutMargins", "YES NO"},
    {"insetsLayoutMarginsFromSafeArea", "YES NO"},
};

} // namespace

const std::vector<std::string>& knownElements() {
    static const std::vector<std::string> names = wordsOf(
        "document device adaptation dependencies deployment plugIn capability customFonts array string objects scenes "
        "scene resources image namedColor systemColor point placeholder exit rect autoresizingMask subviews "
        "constraints constraint color fontDescription nil mutableString accessibility accessibilityTraits bool "
        "connections outlet outletCollection action segue userDefinedRuntimeAttributes userDefinedRuntimeAttribute "
        "integer real size inset edgeInsets directionalEdgeInsets state viewLayoutGuide tableViewCellContentView view "
        "label imageView button textField control scrollView tableView tableViewCell viewController "
        "navigationController variation mask exclude include freeformSimulatedSizeMetrics simulatedScreenMetrics "
        "simulatedStatusBarMetrics simulatedNavigationBarMetrics simulatedTabBarMetrics simulatedToolbarMetrics "
        "simulatedOrientationMetrics simulatedMetricsContainer layoutGuides viewControllerLayoutGuide prototypes "
        "sections tableViewSection cells textInputTraits designables designable inferredMetricsTieBreakers "
        "accessibilityOverrides "
        "localizedString userGuides");
    return names;
}

const std::vector<std::string>& elementsWithoutEffect() {
    static const std::vector<std::string> names = wordsOf(
        "navigationItem navigationBar barButtonItem tabBar tabBarItem toolbar toolbarItems gestureRecognizers "
        "attributedString imageReference preferredSymbolConfiguration buttonConfiguration backgroundConfiguration "
        "keyCommands customCommands userLayoutGuides offsetWrapper date range blurEffect vibrancyEffect segments "
        "items");
    return names;
}

const std::vector<std::string>& knownAttributes(std::string_view element) {
    static std::map<std::string, std::vector<std::string>, std::less<>> read;
    static const std::vector<std::string> none;
    const auto list = attributeLists.find(element);
    if (list == attributeLists.end()) {
        return none;
    }
    const auto [known, isNew] = read.try_emplace(list->first);
    if (isNew) {
        known->second = wordsOf(list->second);
    }
    return known->second;
}

std::vector<std::string> knownWords(const std::string& element, const std::string& attribute) {
    auto words = wordLists.find(element + " " + attribute);
    words = words == wordLists.end() ? wordLists.find(attribute) : words;
    return words == wordLists.end() ? std::vector<std::string>() : wordsOf(words->second);
}
