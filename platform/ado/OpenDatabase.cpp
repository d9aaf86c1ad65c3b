// Which cursors stand on an open database, and taking them away.
#include "platform/ado/OpenDatabase.h"

#include <utility>

namespace payslate::ado {

std::shared_ptr<CursorSlot> OpenDatabase::keep(std::unique_ptr<Cursor> cursor) {
  std::erase_if(slots_, [](const std::weak_ptr<CursorSlot>& slot) { return slot.expired(); });
  auto slot = std::make_shared<CursorSlot>();
  slot->cursor = std::move(cursor);
  slots_.push_back(slot);
  return slot;
}

void OpenDatabase::dropCursors(const std::string& reason) {
  for (const std::weak_ptr<CursorSlot>& weak : slots_) {
    const std::shared_ptr<CursorSlot> slot = weak.lock();
    if (!slot || !slot->cursor) continue;
    slot->cursor.reset();
    slot->lostBy = reason;
  }
  slots_.clear();
}

}  // namespace payslate::ado
