#pragma once

#include "platform/interface/DocumentCache.h"
#include "platform/uikit/controllers/UIStoryboard.h"

#include <filesystem>
#include <memory>
#include <string>

/// A storyboard that is read from an Interface Builder document. Its controllers make their views when they are first
/// asked for them.
class InterfaceStoryboard : public UIStoryboard {
public:
    InterfaceStoryboard(std::filesystem::path path, std::shared_ptr<DocumentCache> documents);

    [[nodiscard]] std::shared_ptr<UIViewController> instantiateInitialViewController() override;
    [[nodiscard]] std::shared_ptr<UIViewController>
    instantiateViewControllerWithIdentifier(const std::string& identifier) override;

private:
    /// Stops the program when the file cannot be read.
    [[nodiscard]] std::shared_ptr<const InterfaceDocument> document() const;
    [[nodiscard]] std::shared_ptr<UIViewController>
    instantiate(const std::shared_ptr<const InterfaceDocument>& document, const InterfaceScene& scene);

    std::filesystem::path m_path;
    std::shared_ptr<DocumentCache> m_documents;
};
