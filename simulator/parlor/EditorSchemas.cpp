#include "simulator/parlor/EditorSchemas.h"

#include "simulator/check/IconNames.h"
#include "simulator/check/ListSchema.h"

namespace {

namespace json = boost::json;

json::object start(const char* title, const char* description) {
    return {{"$schema", "http://json-schema.org/draft-07/schema#"}, {"title", title}, {"description", description}};
}

// Lists.

json::object schemaOf(const ListKey& key) {
    const char* type = key.kind == JSONKind::array ? "array" : key.kind == JSONKind::boolean ? "boolean" : "string";
    return {{"description", key.meaning}, {"type", type}};
}

/// What an editor writes for a key before the author does; `number` is that of the author's stop.
json::value beginningOf(const ListKey& key, std::size_t number) {
    if (key.kind == JSONKind::boolean) {
        return false;
    }
    const std::string stop = "$" + std::to_string(number);
    return key.kind == JSONKind::array ? json::value(json::array{stop}) : json::value(stop);
}

/// An object with all these keys and no other.
json::object objectOf(const char* title, const std::vector<ListKey>& keys) {
    json::array required;
    json::object properties;
    json::object snippet;
    for (const ListKey& key : keys) {
        required.emplace_back(key.name);
        properties[key.name] = schemaOf(key);
        snippet[key.name] = beginningOf(key, required.size());
    }
    return {{"title", title},
            {"type", "object"},
            {"required", std::move(required)},
            {"additionalProperties", false},
            {"properties", std::move(properties)},
            {"defaultSnippets", json::array{json::object{{"label", title}, {"body", std::move(snippet)}}}}};
}

json::object& propertyOf(json::object& schema, const char* key) {
    return schema.at("properties").as_object().at(key).as_object();
}

} // namespace

json::object contentSchema() {
    const std::vector<std::string> icons = iconNames();
    json::object item = objectOf("Item", itemKeys());
    propertyOf(item, "icon")["enum"] = json::array(icons.begin(), icons.end());
    json::object section = objectOf("Section", sectionKeys());
    propertyOf(section, "items")["items"] = std::move(item);
    json::object schema =
        start("A list of game modes",
              "Sections of items, in the order of the screen. The phone passes over keys that are not "
              "described here, and shows no icon for a name that it does not know.");
    schema["type"] = "array";
    schema["items"] = std::move(section);
    return schema;
}
