// Attacks on the embedded engine and the component: kills, losses of power, damaged databases.
//
//   payslate-attack demo FILE                                                makes what the others start from
//   payslate-attack kills|months|writes|copies|catalog FILE SEED PERCENT FOLDER [STEP]
#include <filesystem>
#include <iostream>
#include <map>
#include <vector>

#include "platform/ado/Connection.h"
#include "schema/schema.h"
#include "tools/attack/Attacks.h"

namespace payslate::attack {

std::string freshDatabase(const Plan& plan, const std::string& name) {
  std::string path = plan.folder + '/' + name;
  for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path + suffix);
  std::filesystem::copy_file(plan.demo, path);
  return path;
}

void report(const std::string& line) {
  std::cout << line << ".\n";
}

}  // namespace payslate::attack

int main(int argc, char** argv) {
  using namespace payslate::attack;
  const std::vector<std::string> words(argv + 1, argv + argc);
  const std::map<std::string, void (*)(const Plan&)> attacks{{"kills", killAtRandom},
                                                             {"months", killMonthRuns},
                                                             {"writes", cutAtEveryWrite},
                                                             {"copies", damageCopies},
                                                             {"catalog", damageCatalog}};
  try {
    if (words.size() == 2 && words[0] == "demo") {
      payslate::ado::Connection connection;
      connection.Open(words[1] + ";Create=True");
      payslate::schema::createDemo(connection);
      return 0;
    }
    if ((words.size() != 5 && words.size() != 6) || !attacks.contains(words[0])) {
      std::cerr << "Usage: payslate-attack demo FILE | ATTACK FILE SEED PERCENT FOLDER [STEP]\n";
      return 2;
    }
    Plan plan{words[1], static_cast<std::uint32_t>(std::stoul(words[2])), std::stoi(words[3]), words[4], {}};
    if (words.size() == 6) plan.only = std::stoll(words[5]);
    attacks.at(words[0])(plan);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << words[0] << ": " << error.what() << '\n';
    return 1;
  }
}
