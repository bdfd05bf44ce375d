#pragma once

#include "bench/limit/Frame.h"
#include "bench/limit/Rows.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace limit {

/// Draws the category screen by hand. Scrolling moves the rows' pixels between the box and the bar; only what comes in
/// and what fades under the box is painted.
class Screen {
public:
    Screen(Frame& frame, std::filesystem::path bundle);

    /// What can be done before the content is there: fonts, fixed texts, fixed images.
    void prepare();
    void show(const std::string& group, const std::vector<Section>& sections);
    void paintAll();
    /// The box and the table, after another group was chosen.
    void paintChange();
    /// Down for positive distances, in pixels; as far as the content goes. False when it does not go that far.
    bool scroll(int distance);
    void scrollToTop();

private:
    void paintHeader();
    void paintBox();
    void paintTable();
    void paintRows(int top, int bottom);
    void paintRow(const Row& row, int y, int top, int bottom);
    void paintCard(int y, int height, unsigned color, int top, int bottom);
    void paintImage(cairo_surface_t* image, int x, int y);
    void fadeIn();
    void paintBar();
    [[nodiscard]] cairo_surface_t* image(const std::string& name);
    [[nodiscard]] int greatestOffset();

    Frame& m_frame;
    cairo_t* m_cairo;
    std::filesystem::path m_bundle;
    std::map<std::string, cairo_surface_t*, std::less<>> m_images;
    Text m_title;
    Text m_group;
    Text m_button;
    cairo_surface_t* m_arrow = nullptr;
    cairo_surface_t* m_chevron = nullptr;
    std::optional<Rows> m_rows;
    int m_offset = 0;
};

} // namespace limit
