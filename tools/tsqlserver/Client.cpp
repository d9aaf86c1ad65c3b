// The requests of one client, one after the other.
#include "tools/tsqlserver/Client.h"

#include <iostream>

#include "platform/ado/ConnectionString.h"

namespace payslate::tsqlserver {

namespace {

constexpr std::int32_t unreadable = 8003;

namespace transaction {
constexpr std::uint16_t begin = 5;
constexpr std::uint16_t commit = 7;
constexpr std::uint16_t rollback = 8;
constexpr std::uint8_t beginAfterwards = 1;
}  // namespace transaction

// In front of every request: headers, whose length comes first and counts itself.
Reader withoutHeaders(const Bytes& payload) {
  Reader reader(payload);
  const std::uint32_t length = Reader(payload).u32();
  reader.raw(length);
  return reader;
}

class Client {
 public:
  Client(Packets& packets, House& house)
      : packets_(packets),
        house_(house),
        provider_(ado::openProvider(house.database + ado::createFile)),
        statements_(*provider_, house.controls),
        calls_(statements_, house.controls) {}

  [[noreturn]] void serve() {
    for (;;) {
      const Message message = packets_.receive();
      Reply reply(packets_);
      try {
        answer(message, reply);
      } catch (const Attention&) {
        reply.attentionDone();
      }
      reply.finish();
    }
  }

 private:
  void answer(const Message& message, Reply& reply) {
    switch (message.kind) {
      case PacketKind::Batch:
        return batch(withoutHeaders(message.payload), reply);
      case PacketKind::Call:
        return call(withoutHeaders(message.payload), reply);
      case PacketKind::Transaction:
        return transact(withoutHeaders(message.payload), reply);
      case PacketKind::Attention:
        return reply.attentionDone();  // It came too late to spare anything.
      default:
        throw ProtocolError("A request of an unknown kind: " +
                            std::to_string(static_cast<int>(message.kind)));
    }
  }

  void batch(Reader request, Reply& reply) {
    const std::string text = fromUtf16(request.rest());
    house_.controls.received("batch", text);
    reply.done(Closing::Batch, statements_.run(text, {}, reply));
  }

  void call(const Reader& request, Reply& reply) {
    try {
      calls_.perform(request, reply);
    } catch (const ado::Error& error) {
      reply.error({unreadable, error.Description});
      reply.done(Closing::Procedure, {std::nullopt, 0, true});
    }
  }

  void transact(Reader request, Reply& reply) {
    const std::uint16_t what = request.u16();
    if (what == transaction::begin) return transact("BEGIN TRANSACTION", reply);
    if (what != transaction::commit && what != transaction::rollback)
      throw ProtocolError("A transaction request of an unknown kind: " + std::to_string(what));
    request.shortText();  // Its name.
    const bool again = (request.u8() & transaction::beginAfterwards) != 0;
    const std::string end = what == transaction::commit ? "COMMIT TRANSACTION" : "ROLLBACK TRANSACTION";
    transact(again ? end + " BEGIN TRANSACTION" : end, reply);
  }

  void transact(const std::string& text, Reply& reply) {
    house_.controls.received("transaction", text);
    reply.done(Closing::Batch, statements_.transact(text, reply));
  }

  Packets& packets_;
  House& house_;
  std::unique_ptr<ado::Provider> provider_;
  Statements statements_;
  Calls calls_;
};

}  // namespace

void serveClient(Packets& packets, House& house) {
  try {
    if (admitted(packets, house.door)) Client(packets, house).serve();
  } catch (const Disconnected&) {
    return;  // How every client ends.
  } catch (const std::exception& error) {
    std::cerr << "client " << packets.number() << ": " << error.what() << std::endl;
  }
}

}  // namespace payslate::tsqlserver
