// For authors of skins and for the docs:
//   skin_tool schema         prints the JSON Schema of catalogs (docs/skins.schema.json)
//   skin_tool keys           prints the reference of their keys (docs/skin-keys.md)
//   skin_tool limits         prints what the performance profiles limit (a table of docs/surfaces.md)
//   skin_tool check FILE...  says what a program passes over in silence; exit code 1 when there is anything, 2 when a
//                            file cannot be read
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "tools/skins/describe.h"

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    if (words.size() == 1 && words[0] == "schema") {
        return skin_tool::printSchema();
    }
    if (words.size() == 1 && words[0] == "keys") {
        return skin_tool::printKeys();
    }
    if (words.size() == 1 && words[0] == "limits") {
        return skin_tool::printLimits();
    }
    if (words.size() >= 2 && words[0] == "check") {
        return skin_tool::checkFiles({words.begin() + 1, words.end()});
    }
    std::fprintf(stderr, "usage: skin_tool schema | keys | limits | check FILE...\n");
    return 2;
}
