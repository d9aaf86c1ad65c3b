# Writes OUTPUT, a C++ source that defines payslate::schema::NAME(): the statements of INPUT, which stand between
# lines that say go, without lines of comment. One literal a statement keeps each below what compilers accept.
file(READ "${INPUT}" text)
string(REGEX REPLACE "\r\n" "\n" text "${text}")
string(REGEX REPLACE "(^|\n)--[^\n]*" "\\1" text "${text}")
string(REGEX REPLACE "\n\n+" "\n" text "${text}")
string(STRIP "${text}" text)
string(REPLACE "\ngo\n" ")sql\",\n    R\"sql(" text "${text}")
file(WRITE "${OUTPUT}" "// Written by the build from ${NAME}.sql.
#include \"schema/script.h\"

namespace payslate::schema {

std::vector<std::string_view> ${NAME}() {
  return {
    R\"sql(${text})sql\"};
}

}  // namespace payslate::schema
")
