#pragma once

#include "platform/interface/DocumentCache.h"
#include "platform/uikit/controllers/UINib.h"

#include <filesystem>
#include <memory>
#include <string>

/// A nib that is read from an Interface Builder document when it is instantiated.
class XibNib : public UINib {
public:
    XibNib(std::filesystem::path path, std::shared_ptr<DocumentCache> documents);

    [[nodiscard]] std::string name() const override { return m_path.stem().string(); }
    /// The error tells all that is wrong with the document, one finding a line.
    [[nodiscard]] Result<std::vector<std::shared_ptr<NSObject>>>
    instantiateWithOwner(const std::shared_ptr<NSObject>& owner) override;

private:
    std::filesystem::path m_path;
    std::shared_ptr<DocumentCache> m_documents;
};
