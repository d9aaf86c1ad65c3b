// payslate-bench: publishes what the component's actions take, or counts what they ask of the database.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <sstream>
#include <stdexcept>

#include "bench/Counts.h"
#include "bench/Times.h"

namespace payslate::bench {

namespace {

namespace fs = std::filesystem;

/// Goes away with what is in it, unless it is to be kept.
class Folder {
 public:
  explicit Folder(const std::string& kept)
      : path_(kept.empty()
                  ? fs::temp_directory_path() / ("payslate-bench-" + std::to_string(std::random_device()()))
                  : fs::path(kept)),
        isKept_(!kept.empty()) {
    fs::create_directories(path_);
  }
  ~Folder() {
    std::error_code left;  // What cannot be removed stays.
    if (!isKept_) fs::remove_all(path_, left);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  [[nodiscard]] std::string path() const { return path_.string(); }

 private:
  fs::path path_;
  bool isKept_;
};

std::string contentOf(const std::string& path) {
  const std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  if (!file) throw std::runtime_error(path + " cannot be read");
  return text.str();
}

}  // namespace

int run(int argc, char** argv) {
  CLI::App app("What the component's actions cost on the embedded engine.", "payslate-bench");
  std::vector<std::int32_t> headers{1'000, 200'000, 1'000'000};
  std::string keep;
  std::string check;
  bool counts = false;
  app.add_option("--headers", headers, "Sizes of the payrolls whose times are measured")->delimiter(',');
  app.add_option("--keep", keep, "Where the payrolls stay for the next run");
  app.add_flag("--counts", counts, "Counts statements, prepares and steps, and measures no time");
  app.add_option("--check", check, "Fails where the counts are worse than those of this file")
      ->needs("--counts");
  CLI11_PARSE(app, argc, argv);
  const Folder folder(keep);
  if (!counts) {
    Recorder recorder;
    registerRecording(recorder);
    publishTimes(headers, folder.path(), recorder, std::cout);
    return 0;
  }
  const std::string counted = countedActions(folder.path());
  std::cout << counted;
  if (check.empty()) return 0;
  const std::string worse = worseThan(contentOf(check), counted);
  std::cout << '\n'
            << (worse.empty() ? "Nothing is worse than in " : "Worse than in ") << check << '\n'
            << worse;
  return worse.empty() ? 0 : 1;
}

}  // namespace payslate::bench

int main(int argc, char** argv) {
  try {
    return payslate::bench::run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "payslate-bench: " << error.what() << '\n';
    return 2;
  }
}
