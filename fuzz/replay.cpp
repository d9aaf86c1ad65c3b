// Performs every input of packed files once: the corpus as an ordinary test, for any compiler.
#include <exception>
#include <iostream>

#include "fuzz/PackedCorpus.h"
#include "fuzz/Target.h"

int main(int argc, char** argv) {
  try {
    for (int i = 1; i < argc; ++i) {
      int number = 0;
      for (const payslate::fuzz::PackedInput& input : payslate::fuzz::readPacked(argv[i])) {
        // Before it runs: the last line names the one that ended the program.
        std::cout << argv[i] << ": input " << ++number << input.remark << std::endl;
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.bytes.data()), input.bytes.size());
      }
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
