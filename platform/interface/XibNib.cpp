#include "platform/interface/XibNib.h"

#include "platform/interface/NibMaker.h"

XibNib::XibNib(std::filesystem::path path, std::shared_ptr<DocumentCache> documents)
    : m_path(std::move(path)), m_documents(std::move(documents)) {}

Result<std::vector<std::shared_ptr<NSObject>>> XibNib::instantiateWithOwner(const std::shared_ptr<NSObject>& owner) {
    const LoadedDocument loaded = m_documents->load(m_path);
    if (!loaded.document) {
        return Failure{loaded.problem.describe()};
    }
    if (loaded.document->kind() != InterfaceDocument::Kind::nib) {
        return Failure{m_path.string() + ": error: a storyboard stands where a nib is expected"};
    }
    InterfaceReport report(loaded.document->path());
    std::vector<std::shared_ptr<NSObject>> objects = makeNibObjects(owner, *loaded.document, report);
    if (report.hasErrors()) {
        return Failure{report.errorText()};
    }
    return objects;
}
