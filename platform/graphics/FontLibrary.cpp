#include "platform/graphics/FontLibrary.h"

#include "platform/foundation/FatalError.h"
#include "platform/graphics/UIFont.h"

#include <fontconfig/fontconfig.h>
#include <hb-ot.h>
#include <pango/pangocairo.h>

#include <string>

namespace {

/// Names the folders so that fontconfig finds its ready-made cache of them, then refuses all of their files but ours.
/// Emoji are pictures of one size, which the last rule scales to the size of the text.
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
  <match target="pattern">
    <test name="family"><string>emoji</string></test>
    <edit name="family" mode="prepend" binding="strong"><string>Noto Color Emoji</string></edit>
  </match>
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

bool hasFamily(FcConfig* config, const char* family) {
    FcPattern* wanted = FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, family, nullptr);
    FcObjectSet* nothing = FcObjectSetCreate();
    FcFontSet* found = FcFontList(config, wanted, nothing);
    const bool any = found != nullptr && found->nfont > 0;
    FcFontSetDestroy(found);
    FcObjectSetDestroy(nothing);
    FcPatternDestroy(wanted);
    return any;
}

FcConfig* makeConfiguration() {
    FcConfig* config = FcConfigCreate();
    if (FcConfigParseAndLoadFromMemory(config, reinterpret_cast<const FcChar8*>(configuration), FcTrue) != FcTrue ||
        FcConfigBuildFonts(config) != FcTrue) {
        fatalError("the font configuration could not be loaded");
    }
    if (!hasFamily(config, "Inter") || !hasFamily(config, "Noto Color Emoji")) {
        fatalError("the interface's fonts are missing: "
                   "install the Debian packages fonts-inter and fonts-noto-color-emoji");
    }
    return config;
}

PangoContext* makeContext(PangoFontMap* fonts) {
    PangoContext* context = pango_font_map_create_context(fonts);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("en")); // not that of the machine
    return context;
}

} // namespace

#ifdef __SANITIZE_ADDRESS__
/// Fontconfig keeps its patterns by encoded addresses, which the leak sanitizer cannot follow. Every program that shows
/// text has them at its end.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "print_suppressions=0";
}
#endif

FontLibrary& FontLibrary::shared() {
    static FontLibrary library;
    return library;
}

FontLibrary::FontLibrary() {
    // Current for the whole process, and before the map is made: it would wait for the system's configuration (6 ms).
    FcConfig* config = makeConfiguration();
    FcConfigSetCurrent(config);
    PangoFontMap* fonts = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(fonts), 72);
    FcConfigDestroy(config); // fontconfig holds it
    m_context = makeContext(fonts);
    g_object_unref(fonts); // the context holds it
    m_metrics = measure();
}

PangoFontDescription* FontLibrary::makeDescription(const UIFont& font) {
    static constexpr PangoWeight weights[] = {PANGO_WEIGHT_ULTRALIGHT, PANGO_WEIGHT_THIN,   PANGO_WEIGHT_LIGHT,
                                              PANGO_WEIGHT_NORMAL,     PANGO_WEIGHT_MEDIUM, PANGO_WEIGHT_SEMIBOLD,
                                              PANGO_WEIGHT_BOLD,       PANGO_WEIGHT_HEAVY,  PANGO_WEIGHT_ULTRAHEAVY};
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family_static(description, "Inter");
    pango_font_description_set_weight(description, weights[static_cast<int>(font.weight())]);
    pango_font_description_set_style(description,
                                     font.slant() == FontSlant::italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_font_description_set_absolute_size(description, font.pointSize() * PANGO_SCALE);
    return description;
}

/// Every weight and slant of Inter has the same vertical metrics.
FontLibrary::Metrics FontLibrary::measure() const {
    PangoFontDescription* description = makeDescription(UIFont(17, UIFontWeight::regular));
    PangoFont* font = pango_context_load_font(m_context, description);
    pango_font_description_free(description);
    hb_font_t* shaper = pango_font_get_hb_font(font);
    int em = 0;
    int unused = 0;
    hb_font_get_scale(shaper, &unused, &em);
    const auto metric = [shaper, em](hb_ot_metrics_tag_t tag) {
        hb_position_t value = 0;
        hb_ot_metrics_get_position(shaper, tag, &value);
        return static_cast<CGFloat>(value) / em;
    };
    const Metrics metrics{metric(HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER),
                          metric(HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER)};
    g_object_unref(font);
    return metrics;
}
