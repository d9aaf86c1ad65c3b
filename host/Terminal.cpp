// Each system has a name of its own for the question.
#include "host/Terminal.h"

#include <cstdio>

#if __has_include(<unistd.h>)
#include <unistd.h>
#else
#include <io.h>
#endif

namespace payslate::host {

bool errorsAreSeen() {
#if __has_include(<unistd.h>)
  return isatty(fileno(stderr)) != 0;
#else
  return _isatty(_fileno(stderr)) != 0;
#endif
}

}  // namespace payslate::host
