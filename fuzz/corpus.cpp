// Packs the inputs of a folder into a file, unpacks them again, and adds one that was found:
// corpus pack FOLDER FILE, corpus unpack FILE FOLDER, corpus add INPUT FILE REMARK.
#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/PackedCorpus.h"

using payslate::fuzz::PackedInput;

namespace {

std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error(file.string() + " cannot be read");
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The shortest first, so that a changed corpus changes few places of its file.
void pack(const std::string& folder, const std::string& file) {
  std::vector<PackedInput> inputs;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    inputs.push_back({"", bytesOf(entry.path())});
  }
  std::sort(inputs.begin(), inputs.end(), [](const PackedInput& a, const PackedInput& b) {
    return a.bytes.size() != b.bytes.size() ? a.bytes.size() < b.bytes.size() : a.bytes < b.bytes;
  });
  payslate::fuzz::writePacked(file, inputs);
}

void unpack(const std::string& file, const std::string& folder) {
  std::filesystem::create_directories(folder);
  const std::string stem = std::filesystem::path(file).filename().string();
  int number = 0;
  for (const PackedInput& input : payslate::fuzz::readPacked(file))
    std::ofstream(std::filesystem::path(folder) / (stem + "-" + std::to_string(++number)), std::ios::binary)
        << input.bytes;
}

void add(const std::string& input, const std::string& file, const std::string& remark) {
  std::vector<PackedInput> inputs = payslate::fuzz::readPacked(file);
  inputs.push_back({" " + remark, bytesOf(input)});
  payslate::fuzz::writePacked(file, inputs);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::string what = argc >= 4 ? argv[1] : "";
    if (what == "add" && argc == 5)
      add(argv[2], argv[3], argv[4]);
    else if (what == "pack")
      pack(argv[2], argv[3]);
    else if (what == "unpack")
      unpack(argv[2], argv[3]);
    else
      throw std::runtime_error(
          "Usage: corpus pack FOLDER FILE, corpus unpack FILE FOLDER, or corpus add INPUT FILE REMARK");
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
