#pragma once

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Result.h"
#include "platform/runtime/NSObject.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// A bundle in a folder of its own, filled by the test, with the readers installed on it.
class InterfaceFixture : public testing::Test {
protected:
    using Objects = std::vector<std::shared_ptr<NSObject>>;

    InterfaceFixture();

    void write(const std::string& name, const std::string& text) const { m_folder.write(name, text); }
    [[nodiscard]] Result<Objects> instantiate(const std::string& nib,
                                              const std::shared_ptr<NSObject>& owner = nullptr) const;
    /// The same of a nib whose <objects> hold this; the first line of `objects` is line 3 of the file.
    [[nodiscard]] Result<Objects> instantiateObjects(const std::string& objects,
                                                     const std::shared_ptr<NSObject>& owner = nullptr) const;
    /// What is reported of such a nib, without the bundle's path; nothing when all is well.
    [[nodiscard]] std::string errorsOf(const std::string& objects) const;
    [[nodiscard]] std::string withoutFolder(std::string text) const;
    [[nodiscard]] const NSBundle& bundle() const { return NSBundle::mainBundle(); }
    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder.path(); }

    static std::string nibWith(const std::string& objects);
    static std::string storyboardWith(const std::string& initial, const std::string& scenes);

private:
    support::TemporaryFolder m_folder;
};

/// The first object of a nib that must be sound, typed.
template <class T>
std::shared_ptr<T> firstOf(const Result<std::vector<std::shared_ptr<NSObject>>>& objects) {
    if (!objects) {
        ADD_FAILURE() << objects.failure().what;
        return nullptr;
    }
    auto first = objects.value().empty() ? nullptr : std::dynamic_pointer_cast<T>(objects.value().front());
    EXPECT_TRUE(first) << "the nib's first object is of another class";
    return first;
}
