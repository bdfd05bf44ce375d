#include "platform/foundation/FileReading.h"
#include "platform/interface/NibBuilder.h"
#include "tests/interface/InterfaceFixture.h"

#include <random>

namespace {

/// Whatever becomes of the text: it is read and its objects are made, or something is reported.
void tryDocument(const std::string& text) {
    const InterfaceDocument::Loaded loaded = InterfaceDocument::parse("A", text);
    if (!loaded) {
        EXPECT_FALSE(loaded.failure().what.empty());
        return;
    }
    const InterfaceDocument& document = *loaded.value();
    for (const InterfaceScene& scene : document.scenes()) {
        if (const auto controller = NibBuilder(document).makeController(scene)) {
            static_cast<void>(NibBuilder(document).makeView(scene, controller));
        }
    }
    if (document.kind() == InterfaceDocument::Kind::nib) {
        for (const auto& object : NibBuilder(document).makeNib(nullptr)) {
            if (const auto view = std::dynamic_pointer_cast<UIView>(object)) {
                view->layoutIfNeeded();
            }
        }
    }
}

class BrokenDocuments : public InterfaceFixture, public testing::WithParamInterface<const char*> {};

TEST_P(BrokenDocuments, AreSurvived) {
    const std::string whole = readWholeFile(std::filesystem::path(TD_RESOURCES) / GetParam()).value();
    for (std::size_t length = 0; length < whole.size(); length += 97) {
        tryDocument(whole.substr(0, length));
    }
    const std::vector<std::string> values{"",      "YES",    "-1", "1e9",  "nan",
                                          "0.5:0", "UIView", "-2", "view", std::string(100'000, 'x')};
    std::mt19937 random(7);
    for (int round = 0; round < 150; ++round) {
        std::string changed = whole;
        for (int i = 0; i < 1 + round % 4; ++i) {
            changed[random() % changed.size()] = static_cast<char>(random() % 256);
        }
        tryDocument(changed);
        const std::size_t open = whole.find("=\"", random() % whole.size());
        if (open != std::string::npos) {
            const std::size_t close = whole.find('"', open + 2);
            tryDocument(whole.substr(0, open + 2) + values[random() % values.size()] + whole.substr(close));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, BrokenDocuments,
                         testing::Values("MainInterface.storyboard", "ModeTblCell.xib", "VibeDropdownTblCell.xib",
                                         "ModeHeaderView.xib"));

} // namespace
