#include "platform/interface/NibBuilder.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/UIView.h"

namespace {

/// A storyboard that is read from an Interface Builder document. Its controllers make their views when they are first
/// asked for them.
class DocumentStoryboard : public UIStoryboard {
public:
    explicit DocumentStoryboard(std::filesystem::path path) : m_path(std::move(path)) {}

    [[nodiscard]] std::shared_ptr<UIViewController> instantiateInitialViewController() override {
        const auto document = sound(InterfaceDocument::shared(m_path, InterfaceDocument::Kind::storyboard));
        return instantiate(document, sound(document->initialScene()));
    }
    [[nodiscard]] std::shared_ptr<UIViewController>
    instantiateViewControllerWithIdentifier(const std::string& identifier) override {
        const auto document = sound(InterfaceDocument::shared(m_path, InterfaceDocument::Kind::storyboard));
        return instantiate(document, sound(document->sceneWithIdentifier(identifier)));
    }

private:
    /// Stops the program for a failure.
    template <class T>
    [[nodiscard]] T sound(const Result<T>& result) const {
        if (!result) {
            fatalError(result.failure().in(m_path.string()).describe());
        }
        return result.value();
    }
    static void stopOnErrors(const NibBuilder& builder) {
        if (hasErrors(builder.findings())) {
            fatalError(describeErrors(builder.findings()));
        }
    }

    [[nodiscard]] std::shared_ptr<UIViewController>
    instantiate(const std::shared_ptr<const InterfaceDocument>& document, const InterfaceScene& scene) {
        NibBuilder builder(*document);
        std::shared_ptr<UIViewController> controller = builder.makeController(scene);
        stopOnErrors(builder);
        controller->setStoryboardSource(strong(this), [document, scene](UIViewController& asking) {
            NibBuilder viewBuilder(*document);
            std::shared_ptr<UIView> view = viewBuilder.makeView(scene, strong(&asking));
            stopOnErrors(viewBuilder);
            return view;
        });
        return controller;
    }

    std::filesystem::path m_path;
};

} // namespace

std::shared_ptr<UIStoryboard> UIStoryboard::storyboardWithNameBundle(const std::string& name, const NSBundle& bundle) {
    return std::make_shared<DocumentStoryboard>(
        InterfaceDocument::pathIn(bundle, name, InterfaceDocument::Kind::storyboard));
}
