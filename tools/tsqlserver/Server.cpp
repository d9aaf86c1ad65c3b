// Accepting, and waiting for clients to end.
#include "tools/tsqlserver/Server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace payslate::tsqlserver {

namespace {

constexpr int waitingClients = 16;

void require(bool done, const char* what) {
  if (!done) throw std::system_error(errno, std::generic_category(), what);
}

// The kernel's interface takes addresses of every family as one type.
sockaddr* general(sockaddr_in& address) {
  return static_cast<sockaddr*>(static_cast<void*>(&address));
}

}  // namespace

Server::Server(House& house, std::uint16_t port) : house_(house) {
  listening_ = socket(AF_INET, SOCK_STREAM, 0);
  require(listening_ >= 0, "A socket cannot be had");
  const int on = 1;
  setsockopt(listening_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  try {
    require(bind(listening_, general(address), size) == 0, "The port cannot be had");
    require(listen(listening_, waitingClients) == 0, "The port cannot be listened on");
    require(getsockname(listening_, general(address), &size) == 0, "The port is not known");
  } catch (...) {
    close(listening_);
    throw;
  }
  port_ = ntohs(address.sin_port);
}

Server::~Server() {
  close(listening_);
  sweep(true);
}

void Server::serve(int stop) {
  for (;;) {
    std::array<pollfd, 2> waiting = {{{listening_, POLLIN, 0}, {stop, POLLIN, 0}}};
    if (poll(waiting.data(), waiting.size(), -1) < 0) {
      require(errno == EINTR, "Waiting failed");
      continue;
    }
    if (waiting[1].revents != 0) return;
    sweep(false);
    welcome();
  }
}

void Server::welcome() {
  const int socket = accept(listening_, nullptr, nullptr);
  if (socket < 0) return;  // The client has thought better of it.
  const int on = 1;
  setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  Guest& guest = guests_.emplace_back(socket, ++lastNumber_);
  guest.thread = std::thread([this, &guest] {
    serveClient(guest.packets, house_);
    // The client is to see that it is left, whenever this is swept up.
    guest.packets.shutDown();
    const std::lock_guard lock(mutex_);
    guest.left = true;
  });
}

void Server::sweep(bool all) {
  for (auto guest = guests_.begin(); guest != guests_.end();) {
    if (all) guest->packets.shutDown();
    bool left = all;
    {
      const std::lock_guard lock(mutex_);
      left = left || guest->left;
    }
    if (left) guest->thread.join();
    guest = left ? guests_.erase(guest) : std::next(guest);
  }
}

}  // namespace payslate::tsqlserver
