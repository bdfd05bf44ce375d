#include "platform/interface/NibBuilder.h"
#include "platform/uikit/controllers/UINib.h"

#include <cstdio>

namespace {

/// A nib that is read from an Interface Builder document when it is instantiated.
class DocumentNib : public UINib {
public:
    explicit DocumentNib(std::filesystem::path path) : m_path(std::move(path)) {}

    [[nodiscard]] std::string name() const override { return m_path.stem().string(); }

    [[nodiscard]] Result<std::vector<std::shared_ptr<NSObject>>>
    instantiateWithOwner(const std::shared_ptr<NSObject>& owner) override {
        const InterfaceDocument::Loaded loaded = InterfaceDocument::shared(m_path, InterfaceDocument::Kind::nib);
        if (!loaded) {
            return Failure{loaded.failure().in(m_path.string()).describe()};
        }
        NibBuilder builder(*loaded.value());
        NibBuilder::Objects objects = builder.makeNib(owner);
        if (hasErrors(builder.findings())) {
            return Failure{describeErrors(builder.findings())};
        }
        return objects;
    }

private:
    std::filesystem::path m_path;
};

} // namespace

std::shared_ptr<UINib> UINib::nibWithNibNameBundle(const std::string& name, const NSBundle& bundle) {
    return std::make_shared<DocumentNib>(InterfaceDocument::pathIn(bundle, name, InterfaceDocument::Kind::nib));
}

std::optional<std::vector<std::shared_ptr<NSObject>>> loadNibNamedOwner(const NSBundle& bundle, const std::string& name,
                                                                        const std::shared_ptr<NSObject>& owner) {
    Result<std::vector<std::shared_ptr<NSObject>>> objects =
        UINib::nibWithNibNameBundle(name, bundle)->instantiateWithOwner(owner);
    if (!objects) {
        std::fprintf(stderr, "%s\n", objects.failure().what.c_str());
        return std::nullopt;
    }
    return std::move(objects).value();
}
