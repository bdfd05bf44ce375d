#pragma once

#include "platform/foundation/Result.h"

#include <map>
#include <string>
#include <variant>
#include <vector>

/// A message of a page, as docs/live.md describes them. Whoever reads it asks for the members that its type has, and
/// then whether all of them were there.
class PageMessage {
public:
    [[nodiscard]] static Result<PageMessage> parse(const std::string& text);

    [[nodiscard]] const std::string& type() const { return m_type; }
    [[nodiscard]] bool has(const std::string& name) const { return m_members.count(name) > 0; }

    // What is missing or of another type is noted, and reads as nothing.
    [[nodiscard]] std::string text(const std::string& name);
    [[nodiscard]] double number(const std::string& name);
    [[nodiscard]] bool flag(const std::string& name);
    [[nodiscard]] std::vector<std::string> texts(const std::string& name);

    void complain(std::string what);
    [[nodiscard]] const std::optional<Failure>& complaint() const { return m_complaint; }

private:
    using Value = std::variant<std::string, double, bool, std::vector<std::string>>;

    template <class T>
    [[nodiscard]] T member(const std::string& name, const char* kind);

    std::string m_type;
    std::map<std::string, Value> m_members;
    std::optional<Failure> m_complaint;
};
