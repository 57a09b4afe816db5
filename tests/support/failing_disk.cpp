#include "tests/support/failing_disk.h"

#include <sqlite3.h>

#include <array>
#include <cerrno>

namespace chengheng {
namespace {

struct DiskState {
    bool isFailing = false;
    FailingDisk::Fault fault = FailingDisk::Fault::full;
    int remaining = 0;
    std::array<int, 4> operations{};
};

DiskState state;

/// A file of the real disk, which follows in memory.
struct FailingFile {
    sqlite3_file base;
    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* realOf(sqlite3_file* file) { return reinterpret_cast<FailingFile*>(file)->real(); }

int& countOf(FailingDisk::Fault fault) { return state.operations[static_cast<std::size_t>(fault)]; }

bool isHit(FailingDisk::Fault fault) {
    const int before = countOf(fault)++;
    if (!state.isFailing || state.fault != fault || before < state.remaining) return false;
    errno = fault == FailingDisk::Fault::full ? ENOSPC : EIO;
    return true;
}

int closeFile(sqlite3_file* file) { return realOf(file)->pMethods->xClose(realOf(file)); }

int readFile(sqlite3_file* file, void* into, int amount, sqlite3_int64 offset) {
    if (isHit(FailingDisk::Fault::readError)) return SQLITE_IOERR_READ;
    return realOf(file)->pMethods->xRead(realOf(file), into, amount, offset);
}

int writeFile(sqlite3_file* file, const void* from, int amount, sqlite3_int64 offset) {
    const bool isFull = isHit(FailingDisk::Fault::full);
    if (isHit(FailingDisk::Fault::writeError)) return SQLITE_IOERR_WRITE;
    if (isFull) return SQLITE_FULL;
    return realOf(file)->pMethods->xWrite(realOf(file), from, amount, offset);
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
    return realOf(file)->pMethods->xTruncate(realOf(file), size);
}

int syncFile(sqlite3_file* file, int flags) {
    if (isHit(FailingDisk::Fault::syncError)) return SQLITE_IOERR_FSYNC;
    return realOf(file)->pMethods->xSync(realOf(file), flags);
}

int fileSize(sqlite3_file* file, sqlite3_int64* size) {
    return realOf(file)->pMethods->xFileSize(realOf(file), size);
}

int lockFile(sqlite3_file* file, int level) {
    return realOf(file)->pMethods->xLock(realOf(file), level);
}

int unlockFile(sqlite3_file* file, int level) {
    return realOf(file)->pMethods->xUnlock(realOf(file), level);
}

int checkReserved(sqlite3_file* file, int* result) {
    return realOf(file)->pMethods->xCheckReservedLock(realOf(file), result);
}

int fileControl(sqlite3_file* file, int operation, void* argument) {
    return realOf(file)->pMethods->xFileControl(realOf(file), operation, argument);
}

int sectorSize(sqlite3_file* file) { return realOf(file)->pMethods->xSectorSize(realOf(file)); }

int characteristics(sqlite3_file* file) {
    return realOf(file)->pMethods->xDeviceCharacteristics(realOf(file));
}

int mapShared(sqlite3_file* file, int page, int size, int extend, void volatile** memory) {
    return realOf(file)->pMethods->xShmMap(realOf(file), page, size, extend, memory);
}

int lockShared(sqlite3_file* file, int offset, int count, int flags) {
    return realOf(file)->pMethods->xShmLock(realOf(file), offset, count, flags);
}

void fenceShared(sqlite3_file* file) { realOf(file)->pMethods->xShmBarrier(realOf(file)); }

int unmapShared(sqlite3_file* file, int remove) {
    return realOf(file)->pMethods->xShmUnmap(realOf(file), remove);
}

const sqlite3_io_methods methods{
    2,          closeFile,   readFile,      writeFile,   truncateFile, syncFile,        fileSize,
    lockFile,   unlockFile,  checkReserved, fileControl, sectorSize,   characteristics, mapShared,
    lockShared, fenceShared, unmapShared,   nullptr,     nullptr};

sqlite3_vfs* realDisk = nullptr;

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    const int code = realDisk->xOpen(realDisk, name, realOf(file), flags, outFlags);
    if (realOf(file)->pMethods != nullptr) file->pMethods = &methods;
    return code;
}

sqlite3_vfs failingDisk;

}  // namespace

FailingDisk::FailingDisk() {
    realDisk = sqlite3_vfs_find(nullptr);
    failingDisk = *realDisk;
    failingDisk.zName = "failing-disk";
    failingDisk.pNext = nullptr;
    failingDisk.szOsFile += static_cast<int>(sizeof(FailingFile));
    failingDisk.xOpen = openFile;
    sqlite3_vfs_register(&failingDisk, 1);
    repair();
}

FailingDisk::~FailingDisk() {
    repair();
    sqlite3_vfs_unregister(&failingDisk);
    sqlite3_vfs_register(realDisk, 1);
}

void FailingDisk::fail(Fault fault, int remaining) { state = {true, fault, remaining, {}}; }

void FailingDisk::repair() { state = {}; }

int FailingDisk::operations(Fault fault) const { return countOf(fault); }

}  // namespace chengheng
