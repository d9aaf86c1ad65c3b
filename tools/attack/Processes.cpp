// Forking, and pipes.
#include "tools/attack/Processes.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <stdexcept>

namespace payslate::attack {

Worker::Worker(const std::function<void(const Tell&)>& work) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) throw std::runtime_error("There are no more pipes.");
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("There are no more processes.");
  if (process_ == 0) {
    ::close(ends[0]);
    const Tell tell = [&](char kind, std::array<std::int64_t, 4> numbers, const std::string& text) {
      Note note;
      note.kind = kind;
      std::copy(numbers.begin(), numbers.end(), note.numbers);
      text.copy(note.text, sizeof note.text - 1);
      if (::write(ends[1], &note, sizeof note) != sizeof note) _exit(1);
    };
    try {
      work(tell);
    } catch (const std::exception& error) {
      tell('!', {}, error.what());
    }
    _exit(0);
  }
  ::close(ends[1]);
  pipe_ = ends[0];
}

Worker::~Worker() {
  if (process_ > 0) {
    kill();
    ended();
  }
  ::close(pipe_);
}

std::optional<Note> Worker::note(int milliseconds) {
  pollfd waiting{pipe_, POLLIN, 0};
  if (poll(&waiting, 1, milliseconds) <= 0) return {};
  Note note;
  over_ = ::read(pipe_, &note, sizeof note) != sizeof note;
  return over_ ? std::nullopt : std::optional(note);
}

void Worker::kill() const {
  ::kill(process_, SIGKILL);
}

int Worker::ended() {
  int status = 0;
  waitpid(process_, &status, 0);
  process_ = 0;
  return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status) == 0 ? 0 : -1;
}

}  // namespace payslate::attack
