// payroll-host: a payroll application around the monthly-entry component.
#include <iostream>

#include "host/CommandLine.h"
#include "host/QtScreen.h"

int main(int argc, char** argv) {
  return payslate::host::run(argc, argv, payslate::host::makeQtScreen, std::cout, std::cerr);
}
