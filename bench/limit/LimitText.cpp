#include "bench/limit/LimitText.h"

#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <cmath>

namespace limit {

namespace {

constexpr const char* configuration = R"(<?xml version="1.0"?>
<fontconfig>
  <dir>/usr/share/fonts/opentype/inter</dir>
  <dir>/usr/share/fonts/truetype/noto</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <selectfont>
    <rejectfont><glob>*</glob></rejectfont>
    <acceptfont><glob>*/inter/Inter-*.otf</glob></acceptfont>
    <acceptfont><glob>*/NotoColorEmoji.ttf</glob></acceptfont>
  </selectfont>
  <match target="font">
    <test name="outline"><bool>false</bool></test>
    <edit name="pixelsizefixupfactor" mode="assign">
      <divide><name target="pattern">pixelsize</name><name target="font">pixelsize</name></divide>
    </edit>
    <edit name="matrix" mode="assign">
      <times>
        <name>matrix</name>
        <matrix>
          <name>pixelsizefixupfactor</name><double>0</double><double>0</double><name>pixelsizefixupfactor</name>
        </matrix>
      </times>
    </edit>
    <edit name="size" mode="assign"><divide><name>size</name><name>pixelsizefixupfactor</name></divide></edit>
  </match>
</fontconfig>)";

PangoContext* makeContext() {
    FcConfig* config = FcConfigCreate();
    FcConfigParseAndLoadFromMemory(config, reinterpret_cast<const FcChar8*>(configuration), FcTrue);
    FcConfigBuildFonts(config);
    FcConfigSetCurrent(config);
    PangoFontMap* fonts = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(fonts), config);
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(fonts), 72);
    PangoContext* context = pango_font_map_create_context(fonts);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("en"));
    return context;
}

PangoLayout* sharedLayout() {
    static PangoLayout* const layout = [] {
        PangoLayout* made = pango_layout_new(makeContext());
        pango_layout_set_wrap(made, PANGO_WRAP_WORD_CHAR);
        return made;
    }();
    return layout;
}

void addRun(Text& text, PangoGlyphItem& item, double x, double baseline) {
    PangoFont* font = item.item->analysis.font;
    GlyphRun& run = text.runs.emplace_back();
    run.font = cairo_scaled_font_reference(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)));
    const PangoGlyphString& glyphs = *item.glyphs;
    run.glyphs.reserve(static_cast<std::size_t>(glyphs.num_glyphs));
    for (int i = 0; i < glyphs.num_glyphs; ++i) {
        const PangoGlyphInfo& glyph = glyphs.glyphs[i];
        if (glyph.glyph != PANGO_GLYPH_EMPTY) {
            run.glyphs.push_back({glyph.glyph, x + pango_units_to_double(glyph.geometry.x_offset),
                                  baseline + pango_units_to_double(glyph.geometry.y_offset)});
        }
        x += pango_units_to_double(glyph.geometry.width);
    }
}

void addRuns(Text& text, PangoLayout* layout) {
    PangoLayoutIter* at = pango_layout_get_iter(layout);
    do {
        PangoGlyphItem* item = pango_layout_iter_get_run_readonly(at);
        if (item != nullptr) {
            PangoRectangle box;
            pango_layout_iter_get_run_extents(at, nullptr, &box);
            addRun(text, *item, pango_units_to_double(box.x),
                   pango_units_to_double(pango_layout_iter_get_baseline(at)));
        }
    } while (pango_layout_iter_next_run(at) != FALSE);
    pango_layout_iter_free(at);
}

} // namespace

Text layOut(const std::string& text, Weight weight, int pixels, int width) {
    PangoLayout* layout = sharedLayout();
    PangoFontDescription* font = pango_font_description_new();
    pango_font_description_set_family_static(font, "Inter");
    pango_font_description_set_weight(font, weight == Weight::regular    ? PANGO_WEIGHT_NORMAL
                                            : weight == Weight::semibold ? PANGO_WEIGHT_SEMIBOLD
                                                                         : PANGO_WEIGHT_BOLD);
    pango_font_description_set_absolute_size(font, pixels * PANGO_SCALE);
    pango_layout_set_font_description(layout, font);
    pango_font_description_free(font);
    pango_layout_set_width(layout, width > 0 ? width * PANGO_SCALE : -1);
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
    Text made;
    addRuns(made, layout);
    PangoRectangle box;
    pango_layout_get_extents(layout, nullptr, &box);
    made.width = static_cast<int>(std::ceil(pango_units_to_double(box.width)));
    made.height = static_cast<int>(std::ceil(pango_units_to_double(box.height)));
    return made;
}

void setColor(cairo_t* cairo, unsigned rgb, double alpha) {
    cairo_set_source_rgba(cairo, (rgb >> 16) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, alpha);
}

void draw(cairo_t* cairo, const Text& text, int x, int y, unsigned rgb) {
    setColor(cairo, rgb);
    cairo_translate(cairo, x, y);
    for (const GlyphRun& run : text.runs) {
        cairo_set_scaled_font(cairo, run.font);
        cairo_show_glyphs(cairo, run.glyphs.data(), static_cast<int>(run.glyphs.size()));
    }
    cairo_translate(cairo, -x, -y);
}

} // namespace limit
