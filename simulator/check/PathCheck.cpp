#include "simulator/check/PathCheck.h"

#include "platform/interface/AssetCatalogReader.h"
#include "simulator/check/BundleCheck.h"
#include "simulator/check/CatalogCheck.h"
#include "simulator/check/ContentCheck.h"
#include "simulator/check/FlowCheck.h"
#include "simulator/check/InterfaceCheck.h"
#include "simulator/check/Rules.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

void append(Findings& all, const Findings& more) {
    all.insert(all.end(), more.begin(), more.end());
}

/// Gathers what is wrong with files as they are met.
class PathCheck {
public:
    void check(const fs::path& path, bool isNamed) {
        std::error_code error;
        const fs::path extension = path.extension();
        if (extension == ".xcassets" && fs::is_directory(path, error)) {
            ++m_checked.count;
            append(m_checked.findings, checkCatalog(path));
        } else if (fs::is_directory(path, error)) {
            const std::size_t before = m_checked.count;
            checkFolder(path);
            if (isNamed && m_checked.count == before) {
                tellUnknown(path, "there is nothing to check in this folder");
            }
        } else if (isNamedAsList(path) || (isNamed && extension == ".txt")) {
            checkList(path);
        } else if (extension == ".xib" || extension == ".storyboard") {
            ++m_checked.count;
            append(m_checked.findings, checkDocument(path));
        } else if (extension == ".yaml" || extension == ".yml") {
            checkFlow(path);
        } else if (isNamed) {
            tellUnknown(path, fs::exists(path, error)
                                  ? "this is no list (.json), interface document (.xib, .storyboard), catalogue "
                                    "(.xcassets), flow (.yaml), or folder of them"
                                  : "there is no such file or folder");
        }
    }

    CheckedFiles finish() {
        tidy(m_checked.findings);
        return std::move(m_checked);
    }

private:
    void tellUnknown(const fs::path& path, const char* what) {
        m_checked.findings.push_back(findingOf("path.unknown", path.string(), std::nullopt, what));
    }

    void checkFolder(const fs::path& folder) {
        std::error_code error;
        std::vector<fs::path> paths;
        for (fs::directory_iterator item(folder, error); !error && item != fs::directory_iterator();
             item.increment(error)) {
            if (!item->is_symlink(error) || !item->is_directory(error)) { // links could lead round in a circle
                paths.push_back(item->path());
            }
        }
        std::sort(paths.begin(), paths.end());
        for (const fs::path& path : paths) {
            check(path, false);
        }
    }

    void checkList(const fs::path& path) {
        ++m_checked.count;
        const Result<Findings> found = checkContent(path);
        append(m_checked.findings,
               found ? found.value()
                     : Findings{findingOf("content.unreadable", path.string(), std::nullopt, found.failure().what)});
        append(m_checked.findings, checkContentName(path, ContentPlace::elsewhere));
    }

    void checkFlow(const fs::path& path) {
        ++m_checked.count;
        append(m_checked.findings, checkFlowFile(path));
    }

    CheckedFiles m_checked;
};

} // namespace

CheckedFiles checkPaths(const std::vector<std::string>& paths) {
    PathCheck check;
    for (const std::string& path : paths) {
        check.check(path, true);
    }
    return check.finish();
}

CheckedFiles checkFlowsIn(const std::string& folder) {
    PathCheck check;
    std::error_code error;
    for (fs::directory_iterator item(folder, error); !error && item != fs::directory_iterator();
         item.increment(error)) {
        if (item->path().extension() == ".yaml" || item->path().extension() == ".yml") {
            check.check(item->path(), false);
        }
    }
    return check.finish();
}

CheckedFiles checkWholeBundle() {
    if (const std::optional<Finding> fault = faultOfInfo()) {
        return {{*fault}, 1};
    }
    const Result<BundleFindings> found = checkMainBundle();
    return found ? CheckedFiles{found.value().all, found.value().files} : CheckedFiles{};
}
