// SPDX-License-Identifier: GPL-3.0-or-later

#include "FaultyFiles.h"

#include <QFile>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace brindlemark;

using namespace FaultyFiles;

namespace {

std::mutex lock; // a thread of the try before may still be at its own files when the next is armed
std::string watchedFolder;
std::string struckCall;
Calls counted = Calls::Writing;
Fault kind = Fault::Once;
int chosen = 0;
int failure = 0;
int calls = 0;
bool full = false; // the disk, since a write came back short
std::atomic<bool> armed = false;
std::array<std::atomic<bool>, 8192> watchedHandles;

/// What a call does to a file.
enum class Effect { Reads, Changes, Fills };

enum class Verdict { Works, Fails, HalfWorks };

bool isWatched(const char* path)
{
    if (!armed || !path)
        return false;
    const std::lock_guard guard(lock);
    return std::strncmp(path, watchedFolder.c_str(), watchedFolder.size()) == 0;
}

bool isWatched(int handle)
{
    return armed && handle >= 0 && size_t(handle) < watchedHandles.size() && watchedHandles[size_t(handle)];
}

Verdict verdict(const char* call, Effect effect)
{
    const std::lock_guard guard(lock);
    if (effect == Effect::Reads && counted == Calls::Writing)
        return Verdict::Works;
    ++calls;
    const bool fills = effect == Effect::Fills;
    if (full && fills)
        return Verdict::Fails;
    const bool now = kind == Fault::FullDisk ? chosen > 0 && calls >= chosen && fills : calls == chosen;
    if (!now)
        return Verdict::Works;
    if (kind == Fault::ShortWrite) {
        if (std::strcmp(call, "write") != 0)
            return Verdict::Works;
        full = true;
        struckCall = call;
        return Verdict::HalfWorks;
    }
    struckCall = call;
    return Verdict::Fails;
}

/// For a call about a path or a handle: true makes it fail, with errno set.
template <typename Target>
bool fails(const char* call, Target target, Effect effect)
{
    if (!isWatched(target) || verdict(call, effect) == Verdict::Works)
        return false;
    errno = failure;
    return true;
}

template <typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool makesFile(int flags)
{
    return (flags & O_CREAT) || (flags & O_TMPFILE) == O_TMPFILE;
}

Effect effectOf(int flags)
{
    if (makesFile(flags))
        return Effect::Fills;
    return (flags & O_ACCMODE) == O_RDONLY ? Effect::Reads : Effect::Changes;
}

int openFile(const char* name, const char* path, int flags, mode_t mode)
{
    if (fails("open", path, effectOf(flags)))
        return -1;
    const int handle = next<int(const char*, int, mode_t)>(name)(path, flags, mode);
    if (handle >= 0 && size_t(handle) < watchedHandles.size())
        watchedHandles[size_t(handle)] = isWatched(path);
    return handle;
}

mode_t modeOf(int flags, va_list arguments)
{
    return makesFile(flags) ? va_arg(arguments, mode_t) : 0;
}

} // namespace

void FaultyFiles::arm(const QString& folder, Calls which, int number, Fault fault, int error)
{
    const std::lock_guard guard(lock);
    watchedFolder = QFile::encodeName(folder).toStdString();
    struckCall.clear();
    counted = which;
    kind = fault;
    chosen = number;
    failure = error;
    calls = 0;
    full = false;
    armed = true;
}

int FaultyFiles::disarm()
{
    armed = false;
    const std::lock_guard guard(lock);
    return calls;
}

QByteArray FaultyFiles::struck()
{
    return QByteArray::fromStdString(struckCall);
}

// ---- The system's calls, under their own names
// -------------------------------------------------------------

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openFile("open64", path, flags, mode);
}

ssize_t write(int handle, const void* bytes, size_t size)
{
    static auto* real = next<ssize_t(int, const void*, size_t)>("write");
    if (isWatched(handle)) {
        switch (verdict("write", Effect::Fills)) {
        case Verdict::Fails:
            errno = failure;
            return -1;
        case Verdict::HalfWorks:
            return real(handle, bytes, size / 2);
        case Verdict::Works:
            break;
        }
    }
    return real(handle, bytes, size);
}

ssize_t read(int handle, void* bytes, size_t size)
{
    static auto* real = next<ssize_t(int, void*, size_t)>("read");
    return fails("read", handle, Effect::Reads) ? -1 : real(handle, bytes, size);
}

int close(int handle)
{
    static auto* real = next<int(int)>("close");
    const bool bad = fails("close", handle, Effect::Changes);
    if (handle >= 0 && size_t(handle) < watchedHandles.size())
        watchedHandles[size_t(handle)] = false;
    const int result = real(handle); // the handle is gone either way
    if (bad)
        errno = failure;
    return bad ? -1 : result;
}

int fsync(int handle)
{
    static auto* real = next<int(int)>("fsync");
    return fails("fsync", handle, Effect::Fills) ? -1 : real(handle);
}

int fdatasync(int handle)
{
    static auto* real = next<int(int)>("fdatasync");
    return fails("fdatasync", handle, Effect::Fills) ? -1 : real(handle);
}

int ftruncate64(int handle, off64_t size) noexcept
{
    static auto* real = next<int(int, off64_t)>("ftruncate64");
    return fails("ftruncate", handle, Effect::Changes) ? -1 : real(handle, size);
}

int fchmod(int handle, mode_t mode) noexcept
{
    static auto* real = next<int(int, mode_t)>("fchmod");
    return fails("fchmod", handle, Effect::Changes) ? -1 : real(handle, mode);
}

int chmod(const char* path, mode_t mode) noexcept
{
    static auto* real = next<int(const char*, mode_t)>("chmod");
    return fails("chmod", path, Effect::Changes) ? -1 : real(path, mode);
}

int rename(const char* from, const char* to) noexcept
{
    static auto* real = next<int(const char*, const char*)>("rename");
    return fails("rename", to, Effect::Fills) ? -1 : real(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    static auto* real = next<int(int, const char*, int, const char*, unsigned)>("renameat2");
    return fails("rename", to, Effect::Fills) ? -1 : real(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept
{
    static auto* real = next<int(const char*, const char*)>("link");
    return fails("link", to, Effect::Fills) ? -1 : real(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    static auto* real = next<int(int, const char*, int, const char*, int)>("linkat");
    return fails("link", to, Effect::Fills) ? -1 : real(fromFolder, from, toFolder, to, flags);
}

int unlink(const char* path) noexcept
{
    static auto* real = next<int(const char*)>("unlink");
    return fails("unlink", path, Effect::Changes) ? -1 : real(path);
}

int flock(int handle, int operation) noexcept
{
    static auto* real = next<int(int, int)>("flock");
    return fails("flock", handle, Effect::Changes) ? -1 : real(handle, operation);
}

int access(const char* path, int mode) noexcept
{
    static auto* real = next<int(const char*, int)>("access");
    return fails("access", path, Effect::Reads) ? -1 : real(path, mode);
}

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept
{
    static auto* real = next<int(int, const char*, int, unsigned, struct statx*)>("statx");
    if (*path ? fails("stat", path, Effect::Reads) : fails("stat", folder, Effect::Reads))
        return -1;
    return real(folder, path, flags, mask, status);
}

int stat(const char* path, struct stat* status) noexcept
{
    static auto* real = next<int(const char*, struct stat*)>("stat");
    return fails("stat", path, Effect::Reads) ? -1 : real(path, status);
}

int lstat(const char* path, struct stat* status) noexcept
{
    static auto* real = next<int(const char*, struct stat*)>("lstat");
    return fails("stat", path, Effect::Reads) ? -1 : real(path, status);
}

int fstat(int handle, struct stat* status) noexcept
{
    static auto* real = next<int(int, struct stat*)>("fstat");
    return fails("stat", handle, Effect::Reads) ? -1 : real(handle, status);
}

} // extern "C"
