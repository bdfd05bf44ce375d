#include "platform/foundation/JSONReader.h"

#include "platform/foundation/TextPlaces.h"

#include <boost/json/basic_parser_impl.hpp>

#include <functional>
#include <limits>
#include <new>

namespace json = boost::json;

namespace {

constexpr std::size_t greatestDepth = 512;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view betweenTokens = " \t\r\n,:]}";

/// The end of the string, number or word that begins at `at`; of a container its opening bracket alone.
std::size_t endOfToken(std::string_view body, std::size_t at) {
    if (body[at] == '[' || body[at] == '{') {
        return at + 1;
    }
    if (body[at] != '"') {
        return body.find_first_of(betweenTokens, at);
    }
    ++at;
    while (body[at] != '"') {
        at += body[at] == '\\' ? 2 : 1;
    }
    return at + 1;
}

} // namespace

/// Receives the parser's events and passes them on. The names are the parser's.
class JSONReader::Events {
public:
    static constexpr std::size_t max_object_size = std::numeric_limits<std::uint32_t>::max();
    static constexpr std::size_t max_array_size = std::numeric_limits<std::uint32_t>::max();
    static constexpr std::size_t max_key_size = std::numeric_limits<std::uint32_t>::max();
    static constexpr std::size_t max_string_size = std::numeric_limits<std::uint32_t>::max();

    Events(JSONReader& reader, JSONVisitor& visitor) : m_reader(reader), m_visitor(visitor) {}

    bool on_document_begin(json::error_code&) { return true; }
    bool on_document_end(json::error_code&) { return true; }
    bool on_array_begin(json::error_code&) { return tell({JSONKind::array}); }
    bool on_array_end(std::size_t count, json::error_code&) { return tellEnd(count); }
    bool on_object_begin(json::error_code&) { return tell({JSONKind::object}); }
    bool on_object_end(std::size_t count, json::error_code&) { return tellEnd(count); }
    bool on_key_part(json::string_view part, std::size_t, json::error_code&) { return addPart(part); }
    bool on_key(json::string_view part, std::size_t, json::error_code&) {
        m_visitor.key(whole(part));
        return true;
    }
    bool on_string_part(json::string_view part, std::size_t, json::error_code&) { return addPart(part); }
    bool on_string(json::string_view part, std::size_t, json::error_code&) {
        return tell({JSONKind::string, whole(part)});
    }
    bool on_number_part(json::string_view, json::error_code&) { return true; }
    bool on_int64(std::int64_t number, json::string_view, json::error_code&) {
        return tell({JSONKind::number, {}, static_cast<double>(number)});
    }
    bool on_uint64(std::uint64_t number, json::string_view, json::error_code&) {
        return tell({JSONKind::number, {}, static_cast<double>(number)});
    }
    bool on_double(double number, json::string_view, json::error_code&) { return tell({JSONKind::number, {}, number}); }
    bool on_bool(bool value, json::error_code&) { return tell({JSONKind::boolean, {}, value ? 1.0 : 0.0}); }
    bool on_null(json::error_code&) { return tell({}); }
    bool on_comment_part(json::string_view, json::error_code&) { return true; }
    bool on_comment(json::string_view, json::error_code&) { return true; }

private:
    bool tell(const JSONToken& token) {
        m_visitor.value(token);
        return true;
    }

    bool tellEnd(std::size_t count) {
        m_visitor.end(count);
        return true;
    }

    bool addPart(std::string_view part) {
        m_parts += part;
        return true;
    }

    /// A string without escapes arrives as one piece of the source and stays there.
    std::string_view whole(std::string_view lastPart) {
        if (m_parts.empty() && isInBody(lastPart.data())) {
            return lastPart;
        }
        const std::string_view text = m_reader.m_unescaped.emplace_back(m_parts.append(lastPart));
        m_parts.clear();
        return text;
    }

    [[nodiscard]] bool isInBody(const char* pointer) const {
        const std::less_equal<> notAfter;
        const std::string_view body = m_reader.m_body;
        return notAfter(body.data(), pointer) && notAfter(pointer, body.data() + body.size());
    }

    JSONReader& m_reader;
    JSONVisitor& m_visitor;
    std::string m_parts;
};

JSONReader::JSONReader(std::string_view text) : m_body(text) {
    if (m_body.starts_with(byteOrderMark)) {
        m_body.remove_prefix(byteOrderMark.size());
    }
}

std::optional<Failure> JSONReader::read(JSONVisitor& visitor) {
    if (m_body.size() > std::numeric_limits<std::uint32_t>::max()) {
        return Failure{"the text is larger than 4 GB"};
    }
    try {
        return readAll(visitor);
    } catch (const std::bad_alloc&) {
        return Failure{"there is not enough memory for the text"};
    }
}

std::optional<Failure> JSONReader::readAll(JSONVisitor& visitor) {
    json::parse_options options;
    options.max_depth = greatestDepth;
    json::basic_parser<Events> parser(options, *this, visitor);
    json::error_code error;
    const std::size_t end = parser.write_some(false, m_body.data(), m_body.size(), error);
    if (!error && end < m_body.size()) {
        error = json::make_error_code(json::error::extra_data);
    }
    return error ? std::optional(Failure{error.message(), TextPlaces(m_body).at(end)}) : std::nullopt;
}

/// The text is sound, so that its tokens follow each other as the visitor was told of them.
TextPlace JSONReader::placeOf(std::size_t number) const {
    std::size_t at = m_body.find_first_not_of(betweenTokens);
    for (std::size_t passed = 0; passed < number; ++passed) {
        at = m_body.find_first_not_of(betweenTokens, endOfToken(m_body, at));
    }
    return TextPlaces(m_body).at(at);
}
