// What a test tells the server to do beside serving: to fail on purpose, and to write down what it receives.
//
//   tsqlserver fault NUMBER on 'TEXT'   the next statement that contains TEXT, in any case, is not run but
//                                       answered with this error; 1205 rolls the transaction back first
//   tsqlserver drop on 'TEXT'           … the client that sends it is left without an answer
//   tsqlserver wait on 'TEXT'           … its client waits until it gives up itself
//   tsqlserver log FILE                 from now on one line a request: what kind, a tab, the text
//
// Each is sent as a statement of any client and holds for all; a fault strikes once.
#pragma once

#include <cstdint>
#include <fstream>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace payslate::tsqlserver {

enum class Mischief { Fault, Drop, Wait };

/// Shared by all clients.
class Controls {
 public:
  struct Trap {
    Mischief mischief = Mischief::Fault;
    std::int32_t number = 0;
    std::string text;  ///< In small letters.
  };

  /// Obeys `statement` if it is for here; false for one that is not. A Fault for one that is not understood.
  bool obeyed(const std::string& statement);
  void received(std::string_view kind, std::string_view statement);
  /// The trap that the statement walks into, which is gone then.
  std::optional<Trap> sprung(std::string_view statement);

 private:
  std::mutex mutex_;
  std::vector<Trap> traps_;
  std::ofstream log_;
};

}  // namespace payslate::tsqlserver
