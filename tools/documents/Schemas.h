// JSON Schemas (draft 2020-12) of the files that the program exports and imports.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct Schema {
    std::string fileName; ///< "signs.schema.json"
    std::string text;
};

/// All of them, made from what reading and writing follow. `definition` is the interface definition of the
/// server, which describes the properties.
std::vector<Schema> Schemas(std::string_view definition);

} // namespace qrtVistrelClasses4
