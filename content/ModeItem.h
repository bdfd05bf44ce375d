#pragma once

#include <optional>
#include <string>
#include <utility>

/// One game mode as shown. A value, made by the loader; its texts are fixed once it is built, and only the highlight
/// may be written.
class ModeItem {
public:
    ModeItem(std::optional<std::string> icon, std::string title, std::string subtitle, bool selected)
        : isSelected(selected), m_icon(std::move(icon)), m_title(std::move(title)), m_subtitle(std::move(subtitle)) {}

    /// Image name; content from files always has one.
    [[nodiscard]] const std::optional<std::string>& icon() const { return m_icon; }
    [[nodiscard]] const std::string& title() const { return m_title; }
    [[nodiscard]] const std::string& subtitle() const { return m_subtitle; }

    bool isSelected; // the row is drawn highlighted

private:
    std::optional<std::string> m_icon;
    std::string m_title;
    std::string m_subtitle;
};
