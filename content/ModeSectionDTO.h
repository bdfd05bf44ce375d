#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class ModeSection;
class ModeSectionDTO;

/// One game mode as a content file has it. Immutable, made by the decoder alone; the loader turns it into a ModeItem,
/// which takes over the texts of a record that is given up.
class ModeItemDTO {
public:
    ModeItemDTO(std::string_view icon, std::string_view title, std::string_view subtitle, bool isSelected)
        : m_icon(icon), m_title(title), m_subtitle(subtitle), m_isSelected(isSelected) {}

    [[nodiscard]] const std::string& icon() const { return m_icon; }
    [[nodiscard]] const std::string& title() const { return m_title; }
    [[nodiscard]] const std::string& subtitle() const { return m_subtitle; }
    [[nodiscard]] bool isSelected() const { return m_isSelected; }

private:
    friend ModeSection modeSectionFrom(ModeSectionDTO&& dto);

    std::string m_icon;
    std::string m_title;
    std::string m_subtitle;
    bool m_isSelected;
};

/// One section as a content file has it. Immutable, made by the decoder alone.
class ModeSectionDTO {
public:
    ModeSectionDTO(std::string_view sectionTitle, std::vector<ModeItemDTO> items)
        : m_sectionTitle(sectionTitle), m_items(std::move(items)) {}

    [[nodiscard]] const std::string& sectionTitle() const { return m_sectionTitle; }
    [[nodiscard]] const std::vector<ModeItemDTO>& items() const { return m_items; }

private:
    friend ModeSection modeSectionFrom(ModeSectionDTO&& dto);

    std::string m_sectionTitle;
    std::vector<ModeItemDTO> m_items;
};
