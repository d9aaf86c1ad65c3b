// What every fuzz target is: a function that takes bytes, and stops the program where something does not
// hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

/// Performs one input. Called by the fuzzer, or by the replay of a corpus; nothing may escape from it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace payslate::fuzz {

inline std::string textOf(const std::uint8_t* data, std::size_t size) {
  return {data, data + size};
}

/// A promise of the code under test. Where it is broken the program ends, as it does in a crash.
inline void require(bool holds, std::string_view promise) {
  if (holds) return;
  std::cerr << "Broken: " << promise << std::endl;
  std::abort();
}

}  // namespace payslate::fuzz
