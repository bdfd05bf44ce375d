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

std::string linkOf(CurrentOption option, const ModeSection& inSection, const ModeItem& forItem) {
    const std::optional<NSURL> link = launchLink(option, inSection, forItem);
    return link ? link->absoluteString() : "none";
}

} // namespace

TEST(LaunchLink, NamesOptionSectionItemAndIconAsTheyStand) {
    const struct {
        CurrentOption option;
        std::string section;
        std::string title;
        std::optional<std::string> icon;
        const char* written;
    } cases[] = {
        {CurrentOption::Adult_18_Plus, "S", "T", "I", "Adult%20(18+)&sectionCategory=S&sectionItem=T&icon=I"},
        {CurrentOption::IsItCheating, "", "", "", "Is%20It%20Cheating?&sectionCategory=&sectionItem=&icon="},
        {CurrentOption::WhoIsMostLikely, "Truth & Dare", "= 1+1 #%", std::nullopt,
         "Who%E2%80%99s%20Most%20Likely&sectionCategory=Truth%20%26%20Dare&sectionItem=%3D%201+1%20%23%25&icon"},
        {CurrentOption::Family, "a/b?c:d@e!$'()*,;-._~", "Who’s é😀", "a\0b"s,
         "Family&sectionCategory=a/b?c:d@e!$'()*,;-._~&sectionItem=Who%E2%80%99s%20%C3%A9%F0%9F%98%80&icon=a%00b"},
    };
    for (const auto& [option, title, itemTitle, icon, written] : cases) {
        EXPECT_EQ(linkOf(option, ModeSection(title, {}), ModeItem(icon, itemTitle, "never sent", true)),
                  std::string("https://truths-and-dares.example/Category?mainCategory=") + written);
    }
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
