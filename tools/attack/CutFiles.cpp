// A layer over the system's files. What is written goes through; what a loss of power may take is remembered.
#include "tools/attack/CutFiles.h"

#include <sqlite3.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace payslate::attack {

namespace {

constexpr std::size_t sector = 512;

struct Write {
  std::size_t offset;
  std::string bytes;
  bool truncates = false;  // To the offset.
};

struct Unsynced {
  std::string synced;
  std::vector<Write> writes;
};

struct CutFile {
  sqlite3_file base;
  Unsynced* unsynced;  // None for what is temporary.
  std::string* path;
  sqlite3_file* real;
};

sqlite3_vfs vfs;
sqlite3_io_methods methods;
sqlite3_vfs* system = nullptr;
Cut cut;
std::int64_t events = 0;
std::map<std::string, Unsynced> files;

std::string contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void lay(std::string& image, const Write& write) {
  const std::size_t end = write.offset + write.bytes.size();
  if (write.truncates || image.size() < end) image.resize(end, '\0');
  image.replace(write.offset, write.bytes.size(), write.bytes);
}

// The disk as it may be when the power comes back.
void losePower() {
  std::mt19937 chance(cut.seed);
  for (auto& [path, file] : files) {
    std::string image = file.synced;
    for (Write& write : file.writes) {
      const unsigned fate = chance() % 4;
      if (fate == 0) continue;
      if (fate == 1 && write.bytes.size() > sector)
        write.bytes.resize(chance() % (write.bytes.size() / sector) * sector);
      lay(image, write);
    }
    std::ofstream(path, std::ios::binary | std::ios::trunc) << image;
  }
}

// What is about to be done to the file is cut off in the middle.
void event(CutFile* file, const Write* write) {
  if (++events != cut.at) return;
  if (cut.withPower) {
    if (file != nullptr && file->unsynced != nullptr && write != nullptr)
      file->unsynced->writes.push_back(*write);
    losePower();
  } else if (write != nullptr && !write->truncates) {
    const int part = static_cast<int>(std::mt19937(cut.seed)() % write->bytes.size());
    file->real->pMethods->xWrite(file->real, write->bytes.data(), part,
                                 static_cast<sqlite3_int64>(write->offset));
  }
  std::raise(SIGKILL);
}

CutFile* own(sqlite3_file* file) {
  return static_cast<CutFile*>(static_cast<void*>(file));
}

int noteWrite(sqlite3_file* file, Write write) {
  event(own(file), &write);
  if (own(file)->unsynced != nullptr) own(file)->unsynced->writes.push_back(std::move(write));
  return SQLITE_OK;
}

int writeFile(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  noteWrite(file, {static_cast<std::size_t>(offset),
                   std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(count))});
  return own(file)->real->pMethods->xWrite(own(file)->real, bytes, count, offset);
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
  noteWrite(file, {static_cast<std::size_t>(size), "", true});
  return own(file)->real->pMethods->xTruncate(own(file)->real, size);
}

int syncFile(sqlite3_file* file, int flags) {
  event(own(file), nullptr);
  const int code = own(file)->real->pMethods->xSync(own(file)->real, flags);
  if (own(file)->unsynced != nullptr) *own(file)->unsynced = {contents(*own(file)->path), {}};
  return code;
}

int closeFile(sqlite3_file* file) {
  delete own(file)->path;
  return own(file)->real->pMethods->xClose(own(file)->real);
}

int deleteFile(sqlite3_vfs*, const char* path, int syncs) {
  event(nullptr, nullptr);
  files.erase(path);
  return system->xDelete(system, path, syncs);
}

int openFile(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
  CutFile* opened = own(file);
  *opened = {};
  opened->real = static_cast<sqlite3_file*>(static_cast<void*>(opened + 1));
  const bool kept = path != nullptr && (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_WAL)) != 0;
  const int code = system->xOpen(system, path, opened->real, flags, outFlags);
  if (opened->real->pMethods != nullptr) opened->base.pMethods = &methods;
  if (code == SQLITE_OK && kept) {
    const auto [entry, isNew] = files.try_emplace(path);
    if (isNew) entry->second.synced = contents(path);
    opened->unsynced = &entry->second;
    opened->path = new std::string(path);
  }
  return code;
}

// Everything else is the system's own.
template <auto member, typename... Arguments>
int forward(sqlite3_file* file, Arguments... arguments) {
  return (own(file)->real->pMethods->*member)(own(file)->real, arguments...);
}
template <auto member, typename... Arguments>
void forwardTo(int (*&target)(sqlite3_file*, Arguments...)) {
  target = forward<member, Arguments...>;
}

}  // namespace

void countFiles() {
  using Methods = sqlite3_io_methods;
  constexpr int withSharedMemory = 2;
  methods.iVersion = withSharedMemory;
  methods.xClose = closeFile;
  methods.xWrite = writeFile;
  methods.xTruncate = truncateFile;
  methods.xSync = syncFile;
  forwardTo<&Methods::xRead>(methods.xRead);
  forwardTo<&Methods::xFileSize>(methods.xFileSize);
  forwardTo<&Methods::xLock>(methods.xLock);
  forwardTo<&Methods::xUnlock>(methods.xUnlock);
  forwardTo<&Methods::xCheckReservedLock>(methods.xCheckReservedLock);
  forwardTo<&Methods::xFileControl>(methods.xFileControl);
  forwardTo<&Methods::xSectorSize>(methods.xSectorSize);
  forwardTo<&Methods::xDeviceCharacteristics>(methods.xDeviceCharacteristics);
  forwardTo<&Methods::xShmMap>(methods.xShmMap);
  forwardTo<&Methods::xShmLock>(methods.xShmLock);
  forwardTo<&Methods::xShmUnmap>(methods.xShmUnmap);
  methods.xShmBarrier = [](sqlite3_file* file) { own(file)->real->pMethods->xShmBarrier(own(file)->real); };
  system = sqlite3_vfs_find(nullptr);
  vfs = *system;
  vfs.zName = "cut";
  vfs.szOsFile += static_cast<int>(sizeof(CutFile));
  vfs.xOpen = openFile;
  vfs.xDelete = deleteFile;
  sqlite3_vfs_register(&vfs, 1);
}

void cutAt(const Cut& wanted) {
  cut = wanted;
  events = 0;
  files.clear();
}

std::int64_t countedEvents() {
  return events;
}

}  // namespace payslate::attack
