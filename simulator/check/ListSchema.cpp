#include "simulator/check/ListSchema.h"

const std::vector<ListKey>& sectionKeys() {
    static const std::vector<ListKey> keys{
        {"sectionTitle", JSONKind::string, "a text in quotes", "The heading of the section; \"\" for none."},
        {"items", JSONKind::array, "a list of items, [ … ]", "The rows of the section, in order."}};
    return keys;
}

const std::vector<ListKey>& itemKeys() {
    static const std::vector<ListKey> keys{
        {"icon", JSONKind::string, "the name of an icon in quotes", "An image of the asset catalogue."},
        {"title", JSONKind::string, "a text in quotes", "The first line of the row."},
        {"subtitle", JSONKind::string, "a text in quotes", "What the row is about, below its title."},
        {"isSelected", JSONKind::boolean, "true or false, without quotes", "Whether the row is highlighted."}};
    return keys;
}
