# Writes OUTPUT, a C++ source whose function FUNCTION gives the text of INPUT.
file(READ "${INPUT}" text)
get_filename_component(name "${INPUT}" NAME)
file(WRITE "${OUTPUT}" "// Written by the build from ${name}.
#include \"host/demo_errand.h\"

namespace payslate::host {

std::string_view ${FUNCTION}() {
  return R\"errand(${text})errand\";
}

}  // namespace payslate::host
")
