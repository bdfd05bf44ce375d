#include "simulator/conversation/TextPattern.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cstddef>
#include <cstdint>

namespace {

template <auto release>
struct Release {
    template <class Thing>
    void operator()(Thing* thing) const {
        release(thing);
    }
};

using MatchData = std::unique_ptr<pcre2_match_data, Release<&pcre2_match_data_free>>;
using MatchContext = std::unique_ptr<pcre2_match_context, Release<&pcre2_match_context_free>>;
using CompileContext = std::unique_ptr<pcre2_compile_context, Release<&pcre2_compile_context_free>>;

PCRE2_SPTR units(const std::string& text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
}

} // namespace

struct TextPattern::Code {
    std::unique_ptr<pcre2_code, Release<&pcre2_code_free>> code;
    MatchContext context{pcre2_match_context_create(nullptr)};
};

TextPattern::TextPattern(const std::string& pattern) {
    constexpr std::size_t longest = 1000;             // bytes
    constexpr std::uint32_t greatestEffort = 100'000; // steps back; a reasonable pattern needs a few hundred
    const CompileContext context(pcre2_compile_context_create(nullptr));
    pcre2_set_max_pattern_length(context.get(), longest);
    constexpr std::uint32_t options = PCRE2_ANCHORED | PCRE2_ENDANCHORED | PCRE2_CASELESS | PCRE2_DOTALL | PCRE2_UTF |
                                      PCRE2_MATCH_INVALID_UTF | PCRE2_NEVER_BACKSLASH_C;
    int error = 0;
    PCRE2_SIZE place = 0;
    auto code = std::make_shared<Code>();
    code->code.reset(pcre2_compile(units(pattern), pattern.size(), options, &error, &place, context.get()));
    if (code->code) {
        pcre2_set_match_limit(code->context.get(), greatestEffort);
        m_code = std::move(code);
    }
}

bool TextPattern::matches(const std::string& text) const {
    if (!m_code) {
        return false;
    }
    const MatchData data(pcre2_match_data_create_from_pattern(m_code->code.get(), nullptr));
    return pcre2_match(m_code->code.get(), units(text), text.size(), 0, 0, data.get(), m_code->context.get()) > 0;
}
