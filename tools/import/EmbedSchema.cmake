# SPDX-License-Identifier: GPL-3.0-or-later
# Writes the schema script as a C++ source. Called with -DSCHEMA=... -DOUTPUT=...
file(READ ${SCHEMA} script)
file(WRITE ${OUTPUT} "#include \"SchemaScript.h\"

namespace accessimport {

std::string_view embeddedSchema()
{
    return R\"SQL(${script})SQL\";
}

} // namespace accessimport
")
