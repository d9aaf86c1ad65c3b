// A file that is read as it lies there, without locks: who else may have it open, and whether it changed
// meanwhile.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace payslate::sqlite {

/// Who may not write a database file can make none of the files beside it either, through which those who
/// have it open know of each other; one that were made in a folder for all would shut the others out. As long
/// as nobody has it open the file is whole in itself and needs no locks: a quiet one.
class QuietFile {
 public:
  /// Notes what the file is like now.
  explicit QuietFile(const std::string& path);

  /// Does nobody have it open, and was it left in order?
  static bool isQuiet(const std::string& path);
  /// Are there changes beside it that its last user could not put into it?
  static bool hasChangesBeside(const std::string& path);
  /// Is the file as it was noted? What was read from it before is then from one state of it.
  [[nodiscard]] bool isUnchanged() const;
  /// A name by which SQLite opens the file to read it without locks.
  [[nodiscard]] std::string uri() const;

 private:
  struct Look {
    std::filesystem::file_time_type time;
    std::uintmax_t size = 0;
    friend bool operator==(const Look&, const Look&) = default;
  };
  [[nodiscard]] Look look() const;

  std::string path_;
  Look noted_;
};

}  // namespace payslate::sqlite
