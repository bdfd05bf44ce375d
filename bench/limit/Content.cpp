#include "bench/limit/Content.h"

#include <boost/json/basic_parser_impl.hpp>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace json = boost::json;

namespace limit {

namespace {

constexpr std::array groups{"Adult (18+)",       "Friends",         "Couple",       "Family",
                            "Spin The Bottle",   "Is It Cheating?", "Pickup Lines", "Put A Finger Down",
                            "Who’s Most Likely", "Dating",          "Ice Breaker"};

/// The parser's events. Every string of a content file is the value of the key before it.
class Reader {
public:
    static constexpr std::size_t max_object_size = std::size_t(-1);
    static constexpr std::size_t max_array_size = std::size_t(-1);
    static constexpr std::size_t max_key_size = std::size_t(-1);
    static constexpr std::size_t max_string_size = std::size_t(-1);

    explicit Reader(std::vector<Section>& sections) : m_sections(sections) {}

    bool on_document_begin(json::error_code&) { return true; }
    bool on_document_end(json::error_code&) { return true; }
    bool on_array_begin(json::error_code&) {
        ++m_arrays;
        return true;
    }
    bool on_array_end(std::size_t, json::error_code&) {
        --m_arrays;
        return true;
    }
    bool on_object_begin(json::error_code&) {
        if (m_arrays == 1) {
            m_sections.emplace_back();
        } else {
            m_sections.back().items.emplace_back();
        }
        return true;
    }
    bool on_object_end(std::size_t, json::error_code&) { return true; }
    bool on_key_part(json::string_view, std::size_t, json::error_code&) { return false; }
    bool on_key(json::string_view key, std::size_t, json::error_code&) {
        m_key = key.size() > 1 ? key[1] : '\0';
        return true;
    }
    bool on_string_part(json::string_view part, std::size_t, json::error_code&) {
        target().append(part.data(), part.size());
        return true;
    }
    bool on_string(json::string_view part, std::size_t, json::error_code&) {
        target().append(part.data(), part.size());
        return true;
    }
    bool on_number_part(json::string_view, json::error_code&) { return false; }
    bool on_int64(std::int64_t, json::string_view, json::error_code&) { return false; }
    bool on_uint64(std::uint64_t, json::string_view, json::error_code&) { return false; }
    bool on_double(double, json::string_view, json::error_code&) { return false; }
    bool on_bool(bool value, json::error_code&) {
        m_sections.back().items.back().isSelected = value;
        return true;
    }
    bool on_null(json::error_code&) { return false; }
    bool on_comment_part(json::string_view, json::error_code&) { return false; }
    bool on_comment(json::string_view, json::error_code&) { return false; }

private:
    /// The second letter tells the keys apart: icon, title, subtitle, sectionTitle.
    std::string& target() {
        Section& section = m_sections.back();
        switch (m_key) {
        case 'c':
            return section.items.back().icon;
        case 'i':
            return section.items.back().title;
        case 'u':
            return section.items.back().subtitle;
        default:
            return section.title;
        }
    }

    std::vector<Section>& m_sections;
    int m_arrays = 0;
    char m_key = '\0';
};

[[noreturn]] void stop(const std::filesystem::path& path) {
    std::fprintf(stderr, "limit: %s cannot be read\n", path.c_str());
    std::exit(1);
}

std::string_view readFile(const std::filesystem::path& path, std::string& buffer) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0) {
        stop(path);
    }
    buffer.resize(static_cast<std::size_t>(status.st_size));
    if (read(file, buffer.data(), buffer.size()) != status.st_size) {
        stop(path);
    }
    close(file);
    return buffer;
}

} // namespace

Content readContent(const std::filesystem::path& folder) {
    Content content;
    std::string buffer; // one for all files
    for (const char* group : groups) {
        const std::filesystem::path path = folder / (std::string(group) + ".json");
        const std::string_view text = readFile(path, buffer);
        json::basic_parser<Reader> parser(json::parse_options(), content[group]);
        json::error_code error;
        parser.write_some(false, text.data(), text.size(), error);
        if (error) {
            stop(path);
        }
    }
    return content;
}

} // namespace limit
