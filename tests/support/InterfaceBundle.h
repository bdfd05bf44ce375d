#pragma once

#include "platform/foundation/NSBundle.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/uikit/UIKitClasses.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace support {

/// A main bundle in a folder of its own, which the test fills with interface documents and an asset catalogue.
class InterfaceBundle : public testing::Test {
protected:
    InterfaceBundle() {
        registerUIKitClasses();
        NSBundle::setMainBundle(folder());
        installAssetCatalog();
    }

    void write(const std::string& name, const std::string& text) const { m_folder.write(name, text); }
    [[nodiscard]] const NSBundle& bundle() const { return NSBundle::mainBundle(); }
    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder.path(); }
    [[nodiscard]] std::string withoutFolder(std::string text) const {
        const std::string prefix = folder().string() + "/";
        for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
            text.erase(at, prefix.size());
        }
        return text;
    }

    /// `objects` begins in the document's third line, as do the scenes of a storyboard.
    static std::string nibWith(const std::string& objects) {
        return start("XIB\"><objects>\n") + objects + "\n</objects></document>\n";
    }
    static std::string storyboardWith(const std::string& initial, const std::string& scenes) {
        return start("Storyboard.XIB\" initialViewController=\"") + initial + "\"><scenes>\n" + scenes +
               "\n</scenes></document>\n";
    }

private:
    static std::string start(const std::string& more) {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<document type=\"com.apple.InterfaceBuilder3.CocoaTouch." +
               more;
    }

    TemporaryFolder m_folder;
};

} // namespace support
