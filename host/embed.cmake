# Writes OUTPUT, a C++ source that carries the text of INPUT.
file(READ "${INPUT}" text)
file(WRITE "${OUTPUT}" "// Written by the build from demo.errand.
#include \"host/demo_errand.h\"

namespace payslate::host {

std::string_view demoErrand() {
  return R\"errand(${text})errand\";
}

}  // namespace payslate::host
")
