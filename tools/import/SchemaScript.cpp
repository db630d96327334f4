// SPDX-License-Identifier: GPL-3.0-or-later

#include "SchemaScript.h"

#include <sqlite3.h>

#include <sstream>

namespace accessimport {

namespace {

std::string withoutCommentLines(std::string_view text)
{
    std::istringstream lines{std::string(text)};
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t start = line.find_first_not_of(" \t\r");
        if (start == std::string::npos || line.compare(start, 2, "--") == 0) continue;
        result += line + '\n';
    }
    return result;
}

void addStatement(const std::string& statement, SchemaScript& script)
{
    std::istringstream words(statement);
    std::string verb;
    std::string object;
    std::string name;
    words >> verb >> object >> name;
    if (verb == "BEGIN;" || verb == "COMMIT;" || verb.empty()) return;
    const bool isAfterRows = verb == "CREATE" && object != "TABLE";
    (isAfterRows ? script.rest : script.tables).push_back(statement);
    if (verb == "CREATE") script.names.push_back(name);
}

} // namespace

SchemaScript divideScript(std::string_view script)
{
    SchemaScript divided;
    std::string statement;
    for (const char character : script) {
        statement += character;
        if (character != ';' || !sqlite3_complete(statement.c_str())) continue;
        addStatement(withoutCommentLines(statement), divided);
        statement.clear();
    }
    return divided;
}

} // namespace accessimport
