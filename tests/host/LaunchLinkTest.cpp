#include "host/LaunchLink.h"

#include "platform/foundation/NSExtensionContext.h"
#include "platform/uikit/controllers/UIViewController.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

class Context : public NSExtensionContext {
public:
    void openURLCompletionHandler(const NSURL& url, std::function<void(bool)> completionHandler) override {
        EXPECT_FALSE(completionHandler);
        opened.push_back(url.absoluteString());
    }
    std::vector<std::string> opened;
};

const ModeSection section("S", {});
const ModeItem item("I", "T", "never sent", true);

const std::string base = "https://truths-and-dares.example/Category?mainCategory=";

std::string linkOf(CurrentOption option, const ModeSection& inSection, const ModeItem& forItem) {
    const std::optional<NSURL> link = launchLink(option, inSection, forItem);
    return link ? link->absoluteString() : "none";
}

} // namespace

TEST(LaunchLink, NamesTheOptionAsItStands) {
    const std::pair<CurrentOption, const char*> cases[] = {
        {CurrentOption::Adult_18_Plus, "Adult%20(18+)"},
        {CurrentOption::Family, "Family"},
        {CurrentOption::IsItCheating, "Is%20It%20Cheating?"},
        {CurrentOption::WhoIsMostLikely, "Who%E2%80%99s%20Most%20Likely"},
    };
    for (const auto& [option, written] : cases) {
        EXPECT_EQ(linkOf(option, section, item), base + written + "&sectionCategory=S&sectionItem=T&icon=I");
    }
}

TEST(LaunchLink, EncodesTexts) {
    const std::pair<std::string, const char*> cases[] = {
        {"", ""},
        {"Truth & Dare = 1+1 #%", "Truth%20%26%20Dare%20%3D%201+1%20%23%25"},
        {"a/b?c:d@e!$'()*,;-._~", "a/b?c:d@e!$'()*,;-._~"},
        {"Who’s é😀", "Who%E2%80%99s%20%C3%A9%F0%9F%98%80"},
        {"a\0b"s, "a%00b"},
    };
    for (const auto& [text, written] : cases) {
        EXPECT_EQ(linkOf(CurrentOption::Couple, ModeSection(text, {}), ModeItem(text, text, "", false)),
                  base + "Couple&sectionCategory=" + written + "&sectionItem=" + written + "&icon=" + written)
            << text;
    }
}

TEST(LaunchLink, WritesABareNameForAMissingIcon) {
    const ModeItem bare(std::nullopt, "T", "", false);
    EXPECT_EQ(linkOf(CurrentOption::Family, section, bare), base + "Family&sectionCategory=S&sectionItem=T&icon");
}

TEST(LaunchLink, GoesToTheContextOfTheNearestAncestorAtEveryTap) {
    const auto context = std::make_shared<Context>();
    const auto parent = std::make_shared<UIViewController>();
    const auto screen = std::make_shared<UIViewController>();
    openCategoryLink(*screen, CurrentOption::Friends, section, item); // no context: nothing
    parent->setExtensionContext(context);
    parent->addChildViewController(screen);
    openCategoryLink(*screen, CurrentOption::Friends, section, item);
    openCategoryLink(*screen, CurrentOption::Friends, section, item);
    openCategoryLink(*screen, CurrentOption::Friends, ModeSection("\xFF", {}), item); // no text: nothing
    const std::string link = linkOf(CurrentOption::Friends, section, item);
    EXPECT_EQ(context->opened, (std::vector<std::string>{link, link}));
}
