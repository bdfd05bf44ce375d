#include "platform/interface/NibBuilder.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/window/UIWindow.h"
#include "platform/uikit/window/WindowRenderer.h"
#include "simulator/conversation/BundleSetup.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr CGSize screen{320, 480};

/// Lays out and paints what was made without an error, as the host would.
void show(const std::shared_ptr<UIView>& view) {
    const auto window = std::make_shared<UIWindow>(CGRect{{0, 0}, screen});
    view->setFrame(window->bounds());
    window->addSubview(view);
    WindowRenderer(screen, 1).render(*window);
}

void makeNib(const InterfaceDocument& document) {
    NibBuilder builder(document);
    for (const std::shared_ptr<NSObject>& object : builder.makeNib(nullptr)) {
        const auto view = std::dynamic_pointer_cast<UIView>(object);
        if (view && !hasErrors(builder.findings())) {
            show(view);
        }
    }
}

void makeScene(const InterfaceDocument& document, const InterfaceScene& scene) {
    NibBuilder builder(document);
    const auto controller = builder.makeController(scene);
    if (!controller) {
        return;
    }
    NibBuilder viewBuilder(document);
    const auto view = viewBuilder.makeView(scene, controller);
    if (!hasErrors(viewBuilder.findings())) {
        show(view);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    openExtensionBundle(TD_BUNDLE);
    return 0;
}

/// Any bytes as an interface document: findings, or views on a screen.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto loaded = InterfaceDocument::parse("fuzz.xib", std::string(bytes, bytes + size));
    if (!loaded) {
        return 0;
    }
    const InterfaceDocument& document = *loaded.value();
    static_cast<void>(document.initialScene());
    for (const InterfaceScene& scene : document.scenes()) {
        makeScene(document, scene);
    }
    if (document.kind() == InterfaceDocument::Kind::nib) {
        makeNib(document);
    }
    return 0;
}
