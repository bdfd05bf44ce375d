#include "tests/interface/InterfaceFixture.h"

#include "platform/interface/AssetCatalogReader.h"
#include "platform/uikit/controllers/UINib.h"
#include "tests/interface/StandIns.h"

InterfaceFixture::InterfaceFixture() {
    registerStandIns();
    NSBundle::setMainBundle(folder());
    installAssetCatalog();
}

Result<InterfaceFixture::Objects> InterfaceFixture::instantiate(const std::string& nib,
                                                                const std::shared_ptr<NSObject>& owner) const {
    return UINib::nibWithNibNameBundle(nib, bundle())->instantiateWithOwner(owner);
}

Result<InterfaceFixture::Objects> InterfaceFixture::instantiateObjects(const std::string& objects,
                                                                       const std::shared_ptr<NSObject>& owner) const {
    write("Test.xib", nibWith(objects));
    return instantiate("Test", owner);
}

std::string InterfaceFixture::errorsOf(const std::string& objects) const {
    const Result<Objects> made = instantiateObjects(objects);
    return made ? "" : withoutFolder(made.failure().what);
}

std::string InterfaceFixture::withoutFolder(std::string text) const {
    const std::string prefix = folder().string() + "/";
    for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
        text.erase(at, prefix.size());
    }
    return text;
}

std::string InterfaceFixture::nibWith(const std::string& objects) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<document type=\"com.apple.InterfaceBuilder3.CocoaTouch.XIB\"><objects>\n" +
           objects + "\n</objects></document>\n";
}

std::string InterfaceFixture::storyboardWith(const std::string& initial, const std::string& scenes) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<document type=\"com.apple.InterfaceBuilder3.CocoaTouch.Storyboard.XIB\" initialViewController=\"" +
           initial + "\"><scenes>\n" + scenes + "\n</scenes></document>\n";
}
