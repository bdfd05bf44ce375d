#include "platform/interface/InterfaceStoryboard.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/Nearest.h"
#include "platform/interface/SceneMaker.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/UIView.h"

namespace {

void stopOnErrors(const InterfaceReport& report) {
    if (report.hasErrors()) {
        fatalError(report.errorText());
    }
}

/// Over what the document as a whole lacks.
[[noreturn]] void stopAtRoot(const InterfaceDocument& document, const std::string& message) {
    InterfaceReport report(document.path());
    report.error(document.root(), message);
    fatalError(report.errorText());
}

std::vector<std::string> identifiersIn(const InterfaceDocument& document) {
    std::vector<std::string> identifiers;
    for (const InterfaceScene& scene : document.scenes()) {
        identifiers.emplace_back(scene.controller->value("storyboardIdentifier"));
    }
    return identifiers;
}

} // namespace

InterfaceStoryboard::InterfaceStoryboard(std::filesystem::path path, std::shared_ptr<DocumentCache> documents)
    : m_path(std::move(path)), m_documents(std::move(documents)) {}

std::shared_ptr<UIViewController> InterfaceStoryboard::instantiateInitialViewController() {
    const auto read = document();
    const std::string_view id = read->root().value("initialViewController");
    const InterfaceScene* scene = id.empty() ? nullptr : read->sceneWith("id", id);
    if (scene == nullptr) {
        stopAtRoot(*read, "the storyboard has no initial controller");
    }
    return instantiate(read, *scene);
}

std::shared_ptr<UIViewController>
InterfaceStoryboard::instantiateViewControllerWithIdentifier(const std::string& identifier) {
    const auto read = document();
    const InterfaceScene* scene = read->sceneWith("storyboardIdentifier", identifier);
    if (scene == nullptr) {
        stopAtRoot(*read, "there is no scene with the identifier \"" + identifier + "\"" +
                              suggestion(identifier, identifiersIn(*read)));
    }
    return instantiate(read, *scene);
}

std::shared_ptr<const InterfaceDocument> InterfaceStoryboard::document() const {
    LoadedDocument loaded = m_documents->load(m_path);
    if (!loaded.document) {
        fatalError(loaded.problem.describe());
    }
    if (loaded.document->kind() != InterfaceDocument::Kind::storyboard) {
        stopAtRoot(*loaded.document, "a nib stands where a storyboard is expected");
    }
    return std::move(loaded.document);
}

std::shared_ptr<UIViewController>
InterfaceStoryboard::instantiate(const std::shared_ptr<const InterfaceDocument>& document,
                                 const InterfaceScene& scene) {
    InterfaceReport report(document->path());
    std::shared_ptr<UIViewController> controller = makeSceneController(scene, *document, report);
    stopOnErrors(report);
    controller->setStoryboardSource(strong(this), [document, scene](UIViewController& asking) {
        InterfaceReport viewReport(document->path());
        std::shared_ptr<UIView> view = makeSceneView(scene, strong(&asking), *document, viewReport);
        stopOnErrors(viewReport);
        return view;
    });
    return controller;
}
