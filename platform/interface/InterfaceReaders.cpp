#include "platform/interface/InterfaceReaders.h"

#include "platform/foundation/NSBundle.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/interface/InterfaceStoryboard.h"
#include "platform/interface/XibNib.h"
#include "platform/uikit/controllers/InterfaceProvider.h"

namespace {

/// Reads the documents of the phone's editor as they stand in the bundle.
class DocumentProvider : public InterfaceProvider {
public:
    std::shared_ptr<UINib> nib(const std::string& name, const NSBundle& bundle) override {
        return std::make_shared<XibNib>(pathOf(name, "xib", bundle), m_documents);
    }
    std::shared_ptr<UIStoryboard> storyboard(const std::string& name, const NSBundle& bundle) override {
        return std::make_shared<InterfaceStoryboard>(pathOf(name, "storyboard", bundle), m_documents);
    }

private:
    /// Where the file is, or where it would have to be.
    static std::filesystem::path pathOf(const std::string& name, const char* extension, const NSBundle& bundle) {
        return bundle.URLForResource(name, extension).value_or(bundle.bundlePath() / (name + "." + extension));
    }

    std::shared_ptr<DocumentCache> m_documents = std::make_shared<DocumentCache>();
};

} // namespace

void installInterfaceReaders() {
    InterfaceProvider::setCurrent(std::make_unique<DocumentProvider>());
    AssetCatalog::setCurrent(std::make_shared<AssetCatalogReader>(catalogFolder(NSBundle::mainBundle())));
}
