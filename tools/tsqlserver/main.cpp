// payslate-tsqlserver: lets programs that speak to a Transact-SQL server work on a database of the embedded
// engine.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <csignal>
#include <iostream>

#include "platform/ado/ConnectionString.h"
#include "tools/tsqlserver/Server.h"

namespace {

std::array<int, 2> stopPipe{};

// The only thing that is safe to do here.
extern "C" void askToStop(int) {
  const char mark = 0;
  if (write(stopPipe[1], &mark, 1) < 0) std::_Exit(EXIT_FAILURE);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace payslate;
  tsqlserver::House house;
  std::uint16_t port = 0;
  CLI::App app("Serves a database file on the loopback as a Transact-SQL server would.",
               "payslate-tsqlserver");
  app.add_option("--database", house.database, "The file; made when it is not there")->required();
  app.add_option("--port", port, "The port; 0 is any free one")->capture_default_str();
  CLI::Option* user =
      app.add_option("--user", house.door.user, "Who may log in; everybody when it is not given");
  CLI::Option* password = app.add_option("--password", house.door.password, "The user's password");
  user->needs(password);
  password->needs(user);
  CLI11_PARSE(app, argc, argv);
  try {
    ado::openProvider(house.database + ado::createFile);  // What is wrong with the file is said here and now.
    if (pipe(stopPipe.data()) != 0) throw std::runtime_error("A pipe cannot be had.");
    std::signal(SIGTERM, askToStop);
    std::signal(SIGINT, askToStop);
    tsqlserver::Server server(house, port);
    std::cout << "listening on 127.0.0.1:" << server.port() << std::endl;
    server.serve(stopPipe[0]);
    return EXIT_SUCCESS;
  } catch (const ado::Error& error) {
    std::cerr << "payslate-tsqlserver: " << error.Description << '\n';
  } catch (const std::exception& error) {
    std::cerr << "payslate-tsqlserver: " << error.what() << '\n';
  }
  return EXIT_FAILURE;
}
