#include "simulator/parlor/EditorSchemas.h"

#include "simulator/check/CatalogCheck.h"
#include "simulator/check/ListSchema.h"
#include "simulator/flows/FlowTable.h"

#include <algorithm>
#include <map>

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

// Flows.

json::object referenceTo(const char* definition) {
    return {{"$ref", std::string("#/definitions/") + definition}};
}

json::object schemaOf(const FlowKeys& keys);
json::object schemaOf(const FlowForm& form);
json::object commandSchema();

/// Of a text; a name of `env` can stand for any.
json::object schemaOfText(const FlowForm& form) {
    const auto scalar = [](json::value schema) {
        return json::object{{"anyOf", json::array{std::move(schema), referenceTo("nameOfEnv")}}};
    };
    switch (form.type) {
    case FlowType::number:
        return scalar({{"type", "integer"}, {"minimum", 0}, {"maximum", greatestNumber}});
    case FlowType::truth:
        return scalar({{"type", "boolean"}});
    case FlowType::word:
        return scalar({{"enum", json::array(form.words.begin(), form.words.end())}});
    case FlowType::point:
        return scalar({{"type", "string"}, {"pattern", "^[-0-9.]+%?, *[-0-9.]+%?$"}});
    default:
        return referenceTo("text");
    }
}

json::object schemaOfList(const FlowShape& shape) {
    json::object list{{"type", "array"}, {"items", shape.items ? schemaOf({*shape.items}) : commandSchema()}};
    if (shape.fewestItems > 0) {
        list["minItems"] = shape.fewestItems;
    }
    return list;
}

json::object schemaOfMap(const FlowShape& shape) {
    return shape.keys != nullptr ? schemaOf(shape.keys())
                                 : json::object{{"type", "object"}, {"additionalProperties", referenceTo("text")}};
}

/// What the shape of its type says, whole.
json::object definitionOf(const FlowForm& form) {
    const FlowShape& shape = shapeOf(form.type);
    std::vector<json::object> all; // one or two
    if ((shape.kinds & aNothing) != 0) {
        all.push_back({{"type", "null"}});
    }
    if ((shape.kinds & aList) != 0) {
        all.push_back(schemaOfList(shape));
    }
    if ((shape.kinds & aMap) != 0) {
        all.push_back(schemaOfMap(shape));
    }
    if ((shape.kinds & aText) != 0) {
        all.push_back(schemaOfText(form));
    }
    return all.size() == 1
               ? all.front()
               : json::object{{"if", {{"type", all.front().at("type")}}}, {"then", all.front()}, {"else", all.back()}};
}

/// Those that can stand inside themselves have a name.
json::object schemaOf(const FlowForm& form) {
    static const std::map<FlowType, const char*> names{
        {FlowType::selector, "element"}, {FlowType::resources, "resources"}, {FlowType::commands, "commands"}};
    const auto name = names.find(form.type);
    return name != names.end() ? referenceTo(name->second) : definitionOf(form);
}

json::object described(json::object schema, const std::string& description) {
    if (schema.contains("$ref")) {
        schema = {{"allOf", json::array{std::move(schema)}}}; // nothing beside a reference counts
    }
    schema["description"] = description;
    return schema;
}

/// A map of these keys and no other.
json::object schemaOf(const FlowKeys& keys) {
    json::array required;
    json::object properties;
    for (const FlowKey& key : keys) {
        properties[key.name] = described(schemaOf(key.form), key.purpose);
        if (key.need == FlowNeed::required) {
            required.emplace_back(key.name);
        }
    }
    return {{"type", "object"},
            {"additionalProperties", false},
            {"required", std::move(required)},
            {"properties", std::move(properties)}};
}

/// What stands behind a command's name.
json::object schemaOf(const FlowCommand& command) {
    json::array values;
    for (const FlowForm& form : command.values) {
        values.push_back(schemaOf(form));
    }
    json::value other = values.size() == 1 ? values.front() : json::value{{"anyOf", values}};
    std::string description = command.purpose;
    for (const char* example : command.examples) {
        description += std::string("\n") + example;
    }
    if (command.options.empty()) {
        return described(other.as_object(), description);
    }
    json::value map = schemaOf(command.options);
    if (values.empty()) {
        return described(map.as_object(), description);
    }
    return described({{"if", {{"type", "object"}}}, {"then", std::move(map)}, {"else", std::move(other)}}, description);
}

json::object commandSchema() {
    json::array alone;
    json::object properties;
    for (const FlowCommand& command : flowCommands()) {
        const bool takesNothing = std::any_of(command.values.begin(), command.values.end(),
                                              [](const FlowForm& form) { return form.type == FlowType::nothing; });
        if (takesNothing) {
            alone.emplace_back(command.name);
        }
        properties[command.name] = schemaOf(command);
    }
    return {{"if", {{"type", "string"}}},
            {"then", {{"enum", std::move(alone)}}},
            {"else",
             {{"type", "object"},
              {"minProperties", 1},
              {"maxProperties", 1},
              {"additionalProperties", false},
              {"properties", std::move(properties)}}}};
}

json::object flowDefinitions() {
    return {{"text", {{"type", json::array{"string", "number", "boolean"}}}},
            {"nameOfEnv", {{"type", "string"}, {"pattern", "\\$\\{"}}},
            {"element", definitionOf({FlowType::selector})},
            {"resources", definitionOf({FlowType::resources})},
            {"commands", definitionOf({FlowType::commands})},
            {"settings", schemaOf(flowSettings())}};
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

json::object flowSchema() {
    json::object schema = start("A flow", "A visit to the conversation: settings, then ---, then a list of commands.");
    schema["if"] = {{"type", "array"}};
    schema["then"] = referenceTo("commands");
    schema["else"] = referenceTo("settings");
    schema["definitions"] = flowDefinitions();
    return schema;
}
