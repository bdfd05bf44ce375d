#pragma once

#include <memory>
#include <string>
#include <string_view>

class ModeHeaderView;
class ModeTblCell;

/// Lays titles out in the rows and headers of the main bundle as the smallest phone shows them, to see whether they
/// have room. Made for the checks of one list; without nibs that can be loaded everything fits.
class TitleFit {
public:
    TitleFit();
    ~TitleFit();
    TitleFit(const TitleFit&) = delete;
    TitleFit& operator=(const TitleFit&) = delete;

    /// What is wrong, in words; empty for a title that has room.
    [[nodiscard]] std::string problemOfSection(const std::string& title) const;
    [[nodiscard]] std::string problemOfRow(const std::string& title) const;

private:
    std::shared_ptr<ModeHeaderView> m_header;
    std::shared_ptr<ModeTblCell> m_row;
};
