#include "platform/graphics/FontLibrary.h"

#include "platform/foundation/FatalError.h"
#include "platform/graphics/UIFont.h"

#include <fontconfig/fontconfig.h>
#include <hb-ot.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <string>
#include <tuple>

namespace {

/// A collection of fonts, by what a fontconfig configuration says of it. Folders are named whole, so that fontconfig
/// finds its ready-made cache of them, and what is not accepted is left out.
struct Collection {
    const char* folders;
    const char* selection;
};

/// In the order in which a text looks for its characters.
constexpr std::array<Collection, 3> collections{{
    {R"(<dir>/usr/share/fonts/opentype/inter</dir> <dir>/usr/share/fonts/truetype/noto</dir>)",
     R"(<rejectfont><glob>*</glob></rejectfont>
        <acceptfont><glob>*/inter/Inter-*.otf</glob></acceptfont>
        <acceptfont><glob>*/NotoColorEmoji.ttf</glob></acceptfont>)"},
    {R"(<dir>/usr/share/fonts/opentype/inter</dir> <dir>/usr/share/fonts/truetype/noto</dir>)",
     R"(<rejectfont><glob>*</glob></rejectfont>
        <acceptfont><glob>*/inter/Inter-*.otf</glob></acceptfont>
        <acceptfont><glob>*/NotoColorEmoji.ttf</glob></acceptfont>
        <acceptfont><glob>*/noto/NotoSans*</glob></acceptfont>
        <acceptfont><glob>*/noto/NotoSerifTibetan*</glob></acceptfont>)"},
    {R"(<dir>/usr/share/fonts</dir> <dir>/usr/local/share/fonts</dir> <dir prefix="xdg">fonts</dir>)", ""},
}};

constexpr const char* cacheFolders = R"(<cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>)";

/// Emoji are pictures of one size, which the last rule scales to the size of the text.
constexpr const char* emojiRules = R"(<match target="pattern">
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
  </match>)";

std::string configurationOf(const Collection& collection) {
    return std::string("<?xml version=\"1.0\"?><fontconfig>")
        .append(collection.folders)
        .append(cacheFolders)
        .append("<selectfont>")
        .append(collection.selection)
        .append("</selectfont>")
        .append(emojiRules)
        .append("</fontconfig>");
}

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

FcConfig* makeConfiguration(const Collection& collection) {
    FcConfig* config = FcConfigCreate();
    const std::string text = configurationOf(collection);
    if (FcConfigParseAndLoadFromMemory(config, reinterpret_cast<const FcChar8*>(text.c_str()), FcTrue) != FcTrue ||
        FcConfigBuildFonts(config) != FcTrue) {
        fatalError("the font configuration could not be loaded");
    }
    if (!hasFamily(config, "Inter") || !hasFamily(config, "Noto Color Emoji")) {
        fatalError("the interface's fonts are missing: "
                   "install the Debian packages fonts-inter and fonts-noto-color-emoji");
    }
    return config;
}

/// All characters that at least one of the fonts has.
FcCharSet* makeCharacters(FcConfig* config) {
    FcCharSet* all = FcCharSetCreate();
    const FcFontSet* fonts = FcConfigGetFonts(config, FcSetSystem);
    for (int i = 0; i < fonts->nfont; ++i) {
        FcCharSet* some = nullptr;
        if (FcPatternGetCharSet(fonts->fonts[i], FC_CHARSET, 0, &some) == FcResultMatch) {
            FcCharSetMerge(all, some, nullptr);
        }
    }
    return all;
}

bool needsNoGlyph(gunichar character) {
    return g_unichar_isspace(character) != FALSE || g_unichar_iscntrl(character) != FALSE ||
           pango_is_zero_width(character) != FALSE;
}

/// `text` is valid UTF-8.
bool covers(const FcCharSet* characters, std::string_view text) {
    for (const char* next = text.data(); next < text.data() + text.size(); next = g_utf8_next_char(next)) {
        const gunichar character = g_utf8_get_char(next);
        if (character >= 0x80 && FcCharSetHasChar(characters, character) == FcFalse && !needsNoGlyph(character)) {
            return false;
        }
    }
    return true;
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

#if defined(__SANITIZE_ADDRESS__) || defined(__clang__) // which does not tell; nobody else calls them
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
    static_assert(std::tuple_size_v<decltype(m_fonts)> == collections.size());
    open(0);
    m_metrics = measure();
}

void FontLibrary::open(std::size_t index) {
    FcConfig* config = makeConfiguration(collections[index]);
    if (index == 0) {
        // Current for the whole process, and before a map is made: it would wait for the system's configuration (6 ms).
        FcConfigSetCurrent(config);
    }
    PangoFontMap* map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), config);
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map), 72);
    m_fonts[index] = {makeContext(map), makeCharacters(config)};
    g_object_unref(map);     // the context holds it
    FcConfigDestroy(config); // the map holds it
}

PangoContext* FontLibrary::contextFor(std::string_view text) {
    std::size_t index = 0;
    while (index + 1 < m_fonts.size() && !covers(m_fonts[index].characters, text)) {
        ++index;
        if (m_fonts[index].context == nullptr) {
            open(index);
        }
    }
    return m_fonts[index].context;
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
    PangoFont* font = pango_context_load_font(m_fonts.front().context, description);
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
