// Processes that work and are ended, and what they told until then.
#pragma once

#include <sys/types.h>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace payslate::attack {

/// What a process tells. Written in one piece: who is killed has told it whole or not at all.
struct Note {
  char kind = 0;  ///< Its meaning is up to those who talk.
  std::int64_t numbers[4] = {};
  char text[400] = {};
};

/// A process of its own, forked: no database may be open here.
class Worker {
 public:
  using Tell = std::function<void(char kind, std::array<std::int64_t, 4> numbers, const std::string& text)>;

  /// `work` returns, or throws what is told as a note of kind '!'.
  explicit Worker(const std::function<void(const Tell&)>& work);
  ~Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// The next note; none when the time is over, or the process and all it told. -1 waits forever.
  std::optional<Note> note(int milliseconds);
  /// Has it ended, and was all read that it told?
  [[nodiscard]] bool isOver() const { return over_; }
  void kill() const;
  /// Waits for its end. The signal that ended it, 0 for none.
  int ended();

 private:
  pid_t process_ = 0;
  int pipe_ = -1;
  bool over_ = false;
};

}  // namespace payslate::attack
