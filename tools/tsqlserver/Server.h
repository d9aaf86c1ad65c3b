// The listening socket, and a thread a client.
#pragma once

#include <list>
#include <memory>
#include <mutex>
#include <thread>

#include "tools/tsqlserver/Client.h"

namespace payslate::tsqlserver {

class Server {
 public:
  /// Listens on the loopback; port 0 is any free one. std::system_error when it cannot.
  Server(House& house, std::uint16_t port);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  [[nodiscard]] std::uint16_t port() const { return port_; }
  /// Serves until `stop`, a readable descriptor, has something to read; then leaves every client.
  void serve(int stop);

 private:
  struct Guest {
    Guest(int socket, int number) : packets(socket, number) {}
    Packets packets;
    bool left = false;
    std::thread thread;
  };

  void welcome();
  void sweep(bool all);

  House& house_;
  int listening_ = -1;
  std::uint16_t port_ = 0;
  int lastNumber_ = 50;  // As on a server, whose first numbers are its own.
  std::mutex mutex_;
  std::list<Guest> guests_;
};

}  // namespace payslate::tsqlserver
