#include "simulator/parlor/EditorSchemas.h"
#include "simulator/parlor/PreparedBundle.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace {

namespace json = boost::json;

constexpr const char* examples = "Examples:\n"
                                 "  parlor schema content > schemas/content.schema.json\n"
                                 "  parlor schema flow > schemas/flow.schema.json\n";

/// Lines of up to 118 columns; what fits in one is not broken.
class SchemaPrinter {
public:
    static std::string print(const json::value& value) { return broken(value, 0) + "\n"; }

private:
    static std::string inOneLine(const json::value& value) { return joined(value, ", ", inOneLine); }

    static std::string broken(const json::value& value, std::size_t indent) {
        constexpr std::size_t widest = 118;
        const std::string line = inOneLine(value);
        if (!value.is_structured() || indent + line.size() <= widest) {
            return line;
        }
        const std::string margin(indent + 2, ' ');
        const std::string lines =
            joined(value, ",\n" + margin, [indent](const json::value& inside) { return broken(inside, indent + 2); });
        return line.front() + ("\n" + margin) + lines.substr(1, lines.size() - 2) + "\n" + std::string(indent, ' ') +
               line.back();
    }

    template <class Print>
    static std::string joined(const json::value& value, const std::string& separator, Print print) {
        if (!value.is_structured()) {
            return json::serialize(value);
        }
        std::string text;
        const auto add = [&](const std::string& part) { text += (text.empty() ? "" : separator) + part; };
        if (value.is_array()) {
            for (const json::value& element : value.get_array()) {
                add(print(element));
            }
            return "[" + text + "]";
        }
        for (const auto& [key, member] : value.get_object()) {
            add(json::serialize(key) + ": " + print(member));
        }
        return "{" + text + "}";
    }
};

/// The names of the icons stand in the bundle.
json::value schemaOf(const std::string& kind) {
    if (kind == "flow") {
        return flowSchema();
    }
    openExtensionBundle(usualBundle());
    return contentSchema();
}

CommandResult printSchema(const std::string& kind) {
    if (!(std::cout << SchemaPrinter::print(schemaOf(kind)) << std::flush)) {
        return Failure{"standard output cannot be written"};
    }
    return Findings();
}

} // namespace

ParlorCommand addSchemaCommand(CLI::App& app) {
    const auto kind = std::make_shared<std::string>();
    CLI::App* line = app.add_subcommand("schema", "Prints the JSON Schema of lists or flows, for editors");
    line->add_option("kind", *kind, "content or flow")
        ->check(oneOf({"content", "flow"}))
        ->option_text("KIND")
        ->required();
    line->footer(examples);
    return {line, [kind] { return printSchema(*kind); }};
}
