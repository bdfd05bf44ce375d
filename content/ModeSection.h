#pragma once

#include "content/ModeItem.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A titled group of game modes as shown. A value: its title is fixed once it is built, its items may be replaced.
/// Copies share title and items, so that a list of sections is copied without its texts. An empty title means that the
/// section is shown without a header.
class ModeSection {
public:
    ModeSection(std::string sectionTitle, std::vector<ModeItem> items)
        : m_content(std::make_shared<const Content>(Content{std::move(sectionTitle), std::move(items)})) {}

    [[nodiscard]] const std::string& sectionTitle() const { return m_content->sectionTitle; }
    [[nodiscard]] const std::vector<ModeItem>& items() const { return m_content->items; }
    /// Of this copy alone.
    void setItems(std::vector<ModeItem> items) { *this = ModeSection(sectionTitle(), std::move(items)); }

private:
    struct Content {
        std::string sectionTitle;
        std::vector<ModeItem> items;
    };
    std::shared_ptr<const Content> m_content;
};
