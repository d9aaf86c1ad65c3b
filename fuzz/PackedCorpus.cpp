// Reading and writing packed inputs.
#include "fuzz/PackedCorpus.h"

#include <fstream>
#include <stdexcept>

namespace payslate::fuzz {

std::vector<PackedInput> readPacked(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error(file + " cannot be read");
  std::vector<PackedInput> inputs;
  for (std::size_t length = 0; in >> length;) {
    PackedInput& input = inputs.emplace_back();
    std::getline(in, input.remark);
    input.bytes.resize(length);
    if (!in.read(input.bytes.data(), static_cast<std::streamsize>(length)))
      throw std::runtime_error(file + " ends within input " + std::to_string(inputs.size()));
  }
  if (!in.eof())
    throw std::runtime_error(file + ": no length stands behind input " + std::to_string(inputs.size()));
  return inputs;
}

void writePacked(const std::string& file, const std::vector<PackedInput>& inputs) {
  std::ofstream out(file, std::ios::binary);
  for (const PackedInput& input : inputs)
    out << input.bytes.size() << input.remark << '\n' << input.bytes << '\n';
  if (!out.flush()) throw std::runtime_error(file + " cannot be written");
}

}  // namespace payslate::fuzz
