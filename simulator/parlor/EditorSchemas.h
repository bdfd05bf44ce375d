#pragma once

#include <boost/json.hpp>

// JSON Schemas (draft 7) that describe to an editor what an author can write. They are made from the tables that the
// readers and checks use, and are published in schemas/.

/// Of content lists; needs the bundle's catalogue, whose icons it names, to be the current one.
[[nodiscard]] boost::json::object contentSchema();
/// Of both parts of a flow, settings and commands; an editor looks at one part at a time.
[[nodiscard]] boost::json::object flowSchema();
