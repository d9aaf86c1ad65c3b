// payslate-recorder: writes down what the component sends and says while errands are performed, or holds it
// against what was written down before.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "host/ComponentStage.h"
#include "platform/ado/ConnectionString.h"
#include "platform/scripted/ErrandRunner.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/scripted/ScriptedHands.h"
#include "schema/schema.h"
#include "tools/recorder/Recording.h"

namespace payslate::recorder {

namespace {

namespace fs = std::filesystem;

/// The place in the transcript: its last line, "LINE <tab> instruction".
std::string lastLine(const std::ostringstream& transcript) {
  std::string text = transcript.str();
  if (!text.empty()) text.pop_back();
  return text.substr(text.find_last_of('\n') + 1);
}

/// Performs the errand on a database in memory of its own; std::runtime_error when an expectation does not
/// hold.
Recording record(const fs::path& file, bool demo) {
  const auto errand = scripted::Errand::read(file.string());
  scripted::ScriptedDesktop desktop;
  scripted::ScriptedHands hands;
  const host::SharedConnection connection = host::openDatabase(ado::inMemory);
  if (demo) schema::createDemo(*connection);
  host::ComponentStage stage(desktop, connection, file.parent_path().string());
  std::ostringstream transcript;
  scripted::ErrandRunner clerk(errand, hands, stage, transcript);
  Recording recording(clerk, [&transcript] { return lastLine(transcript); });
  stage.StatementSent = [&recording](std::string_view statement) { recording.statement(statement); };
  desktop.setClerk(&recording);
  if (!clerk.run()) {
    const scripted::Failure& failure = *clerk.failure();
    throw std::runtime_error(failure.file + ':' + std::to_string(failure.line) + ": " + failure.instruction +
                             "\n  expected: " + failure.expected + "\n  found:    " + failure.found);
  }
  return recording;
}

void write(const Recording& recording, const fs::path& file) {
  std::ofstream out(file, std::ios::binary);
  for (const std::string& line : recording.lines()) out << line << '\n';
  out.close();
  if (!out) throw std::runtime_error(file.string() + " cannot be written");
}

/// True when they are equal, line by line; otherwise the first difference has been told.
bool compare(const Recording& recording, const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error(file.string() + " cannot be read");
  const std::vector<std::string>& lines = recording.lines();
  std::string expected;
  std::size_t at = 0;
  for (; std::getline(in, expected); ++at) {
    if (at < lines.size() && lines[at] == expected) continue;
    const bool ended = at == lines.size();
    std::cout << file.string() << ':' << at + 1 << ": differs"
              << (ended ? " at the end" : ", at errand line " + recording.placeOf(at))
              << "\n  recorded: " << expected << "\n  now:      " << (ended ? "nothing more" : lines[at])
              << '\n';
    return false;
  }
  if (at == lines.size()) return true;
  std::cout << file.string() << ':' << at + 1 << ": more than was recorded, at errand line "
            << recording.placeOf(at) << "\n  now:      " << lines[at] << '\n';
  return false;
}

}  // namespace

int run(int argc, char** argv) {
  CLI::App app("Records what the component sends and says while errands are performed.", "payslate-recorder");
  fs::path folder;
  std::vector<fs::path> errands;
  bool check = false;
  bool demo = false;
  app.add_option("FOLDER", folder, "Where the recorded sequences are, one NAME.txt for each NAME.errand")
      ->required();
  app.add_option("ERRAND", errands, "The errands, each performed on a database in memory of its own")
      ->required();
  app.add_flag("--check", check, "Writes nothing, and fails where a sequence is not the recorded one");
  app.add_flag("--demo", demo, "The databases hold the demo companies");
  CLI11_PARSE(app, argc, argv);
  bool equal = true;
  for (const fs::path& errand : errands) {
    const Recording recording = record(errand, demo);
    const fs::path file = folder / errand.stem().concat(".txt");
    if (check) {
      equal = compare(recording, file) && equal;
    } else {
      fs::create_directories(folder);
      write(recording, file);
    }
    std::cout << errand.stem().string() << ": " << recording.lines().size() << " lines\n";
  }
  return equal ? 0 : 1;
}

}  // namespace payslate::recorder

int main(int argc, char** argv) {
  try {
    return payslate::recorder::run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "payslate-recorder: " << error.what() << '\n';
    return 2;
  }
}
