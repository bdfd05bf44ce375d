#include "simulator/live/PageMessage.h"

#include <boost/json.hpp>

#include <cmath>

namespace json = boost::json;

namespace {

std::optional<std::vector<std::string>> textsIn(const json::array& items) {
    std::vector<std::string> texts;
    for (const json::value& item : items) {
        if (!item.is_string()) {
            return std::nullopt;
        }
        texts.emplace_back(item.as_string());
    }
    return texts;
}

} // namespace

Result<PageMessage> PageMessage::parse(const std::string& text) {
    json::error_code error;
    json::parse_options options;
    options.max_depth = 4;
    const json::value value = json::parse(text, error, {}, options);
    if (error || !value.is_object()) {
        return Failure{"a message that is no JSON object"};
    }
    PageMessage message;
    for (const auto& [key, member] : value.as_object()) {
        const std::string name(key);
        if (member.is_string()) {
            message.m_members[name] = std::string(member.as_string());
        } else if (member.is_bool()) {
            message.m_members[name] = member.as_bool();
        } else if (member.is_number()) {
            message.m_members[name] = member.to_number<double>();
        } else if (member.is_array()) {
            if (std::optional<std::vector<std::string>> texts = textsIn(member.as_array())) {
                message.m_members[name] = *std::move(texts);
            }
        }
    }
    message.m_type = message.text("type");
    return message.m_complaint ? Result<PageMessage>(*message.m_complaint) : message;
}

template <class T>
T PageMessage::member(const std::string& name, const char* kind) {
    const auto found = m_members.find(name);
    if (found != m_members.end()) {
        if (const T* value = std::get_if<T>(&found->second)) {
            return *value;
        }
    }
    complain("'" + name + "' is no " + kind);
    return T{};
}

std::string PageMessage::text(const std::string& name) {
    return member<std::string>(name, "text");
}

/// Places far outside of every phone would only overflow somewhere.
double PageMessage::number(const std::string& name) {
    const auto value = member<double>(name, "number");
    constexpr double largest = 100'000;
    if (!std::isfinite(value) || std::abs(value) > largest) {
        complain("'" + name + "' is out of range");
        return 0;
    }
    return value;
}

bool PageMessage::flag(const std::string& name) {
    return member<bool>(name, "true or false");
}

std::vector<std::string> PageMessage::texts(const std::string& name) {
    return member<std::vector<std::string>>(name, "list of texts");
}

void PageMessage::complain(std::string what) {
    if (!m_complaint) {
        m_complaint = Failure{m_type.empty() ? std::move(what) : "a message '" + m_type + "': " + what};
    }
}
