#include "platform/foundation/FileReading.h"
#include "platform/interface/NibMaker.h"
#include "platform/interface/SceneMaker.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/UIView.h"
#include "tests/interface/StandIns.h"

#include <gtest/gtest.h>

#include <random>

namespace {

/// Whatever becomes of the text: it is read and its objects are made, or something is reported.
void tryDocument(const std::string& text) {
    const LoadedDocument loaded = InterfaceDocument::parse("A", text);
    if (!loaded.document) {
        EXPECT_FALSE(loaded.problem.what.empty());
        return;
    }
    InterfaceReport report("A");
    for (const InterfaceScene& scene : loaded.document->scenes()) {
        if (const auto controller = makeSceneController(scene, *loaded.document, report)) {
            static_cast<void>(makeSceneView(scene, controller, *loaded.document, report));
        }
    }
    if (loaded.document->kind() == InterfaceDocument::Kind::nib) {
        const auto objects = makeNibObjects(nullptr, *loaded.document, report);
        for (const auto& object : objects) {
            if (const auto view = std::dynamic_pointer_cast<UIView>(object)) {
                view->layoutIfNeeded();
            }
        }
    }
}

class BrokenDocuments : public testing::TestWithParam<const char*> {
protected:
    BrokenDocuments() { registerStandIns(); }

    [[nodiscard]] static std::string text() {
        return readWholeFile(std::filesystem::path(TD_RESOURCES) / GetParam()).value();
    }
};

TEST_P(BrokenDocuments, AreSurvivedWhenCutOff) {
    const std::string whole = text();
    for (std::size_t length = 0; length < whole.size(); length += 97) {
        tryDocument(whole.substr(0, length));
    }
    tryDocument(whole);
}

TEST_P(BrokenDocuments, AreSurvivedWhenBytesOrValuesChange) {
    const std::vector<std::string> values{"",      "YES",    "-1", "1e9",  "nan",
                                          "0.5:0", "UIView", "-2", "view", std::string(100'000, 'x')};
    const std::string whole = text();
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
                                         "ModeHeaderView.xib"),
                         [](const auto& each) {
                             const std::string name = each.param;
                             return name.substr(0, name.find('.'));
                         });

} // namespace
