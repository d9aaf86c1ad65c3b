// Many inputs in one file: before each stands a line with its length in bytes and, for readers, perhaps a
// remark.
#pragma once

#include <string>
#include <vector>

namespace payslate::fuzz {

struct PackedInput {
  std::string remark;
  std::string bytes;
};

/// Throws std::runtime_error for a file that is not there, or not whole.
std::vector<PackedInput> readPacked(const std::string& file);
void writePacked(const std::string& file, const std::vector<PackedInput>& inputs);

}  // namespace payslate::fuzz
