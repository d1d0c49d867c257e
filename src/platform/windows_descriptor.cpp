#include "platform/descriptor.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/random_letters.h"

namespace melvane {

namespace {

constexpr int always = _O_BINARY | _O_NOINHERIT;
constexpr int usualRights = _S_IREAD | _S_IWRITE;
/// For one call, whose counts are narrow, in bytes.
constexpr std::size_t mostAtOnce = 1U << 30U;

/// What is no UTF-8 becomes a letter that stands for it, so that no file is found or one of another name
/// made.
std::wstring wide(const std::string& path) {
    const int size = static_cast<int>(path.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, path.data(), size, nullptr, 0);
    std::wstring name(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, path.data(), size, name.data(), length);
    return name;
}

/// A file that is open cannot be removed by others, whatever they may do with it.
int openShared(const std::string& path, int how, int sharing = _SH_DENYNO) {
    return _wsopen(wide(path).c_str(), how | always, sharing, usualRights);
}

HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

bool isOrdinary(int descriptor) { return GetFileType(handleOf(descriptor)) == FILE_TYPE_DISK; }

bool failWithLastError() {
    const auto system = std::error_code(static_cast<int>(GetLastError()), std::system_category());
    const std::error_condition reason = system.default_error_condition();
    errno = reason.category() == std::generic_category() ? reason.value() : EIO;
    return false;
}

/// A byte that no file has stands for the whole, since what is locked can be neither read nor written by
/// others.
OVERLAPPED lockedByte() {
    OVERLAPPED place{};
    place.OffsetHigh = 0x7fffffff;
    return place;
}

}  // namespace

int openForReading(const std::string& path) { return openShared(path, _O_RDONLY); }

int openForWriting(const std::string& path) { return openShared(path, _O_WRONLY); }

int openOrMake(const std::string& path) { return openShared(path, _O_WRONLY | _O_CREAT); }

int openForBoth(const std::string& path) { return openShared(path, _O_RDWR); }

int openAlone(const std::string& path) {
    int descriptor = openShared(path, _O_RDWR | _O_CREAT, _SH_DENYWR);
    if (descriptor < 0 && errno == EACCES) descriptor = openShared(path, _O_RDONLY, _SH_DENYWR);
    if (descriptor < 0) return -1;
    if (isOrdinary(descriptor) && markInUse(descriptor)) return descriptor;
    _close(descriptor);
    return -1;
}

int openNameless(const std::string& /*folder*/) {
    errno = ENOSYS;
    return -1;
}

int openUnique(std::string& path) {
    constexpr std::size_t chosen = 6;
    constexpr int mostTries = 100;
    int descriptor = -1;
    for (int tries = 0; tries < mostTries; ++tries) {
        path.replace(path.size() - chosen, chosen, randomLetters(chosen));
        descriptor = openShared(path, _O_RDWR | _O_CREAT | _O_EXCL);
        if (descriptor >= 0 || errno != EEXIST) break;
    }
    return descriptor;
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view next = bytes.substr(0, mostAtOnce);
        const int written = _write(descriptor, next.data(), static_cast<unsigned>(next.size()));
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::size_t writeAt(int descriptor, std::string_view bytes, std::uint64_t place) {
    const std::int64_t before = _telli64(descriptor);
    if (before < 0 || _lseeki64(descriptor, static_cast<std::int64_t>(place), SEEK_SET) < 0) return 0;
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::string_view next = bytes.substr(done, mostAtOnce);
        const int written = _write(descriptor, next.data(), static_cast<unsigned>(next.size()));
        if (written <= 0) break;
        done += static_cast<std::size_t>(written);
    }
    const int reason = errno;
    _lseeki64(descriptor, before, SEEK_SET);
    errno = reason;
    return done;
}

std::optional<std::size_t> readSome(int descriptor, std::span<unsigned char> bytes) {
    const auto most = static_cast<unsigned>(std::min(bytes.size(), mostAtOnce));
    const int count = _read(descriptor, bytes.data(), most);
    if (count < 0) return std::nullopt;
    return static_cast<std::size_t>(count);
}

bool stepBack(int descriptor, std::size_t bytes) {
    return _lseeki64(descriptor, -static_cast<std::int64_t>(bytes), SEEK_CUR) >= 0;
}

bool setLength(int descriptor, std::uint64_t bytes) {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(bytes);
    return SetFileInformationByHandle(handleOf(descriptor), FileEndOfFileInfo, &end, sizeof end) != 0 ||
           failWithLastError();
}

bool bringToDisk(int descriptor) { return _commit(descriptor) == 0; }

bool markInUse(int descriptor) {
    OVERLAPPED place = lockedByte();
    constexpr DWORD atOnce = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    return LockFileEx(handleOf(descriptor), atOnce, 0, 1, 0, &place) != 0 || failWithLastError();
}

bool giveFree(int descriptor) {
    OVERLAPPED place = lockedByte();
    return UnlockFileEx(handleOf(descriptor), 0, 1, 0, &place) != 0 || failWithLastError();
}

void removeUnused(const std::string& path) { _wunlink(wide(path).c_str()); }

bool isNoOrdinaryFile(const std::string& path) {
    constexpr std::wstring_view devices = L"\\\\.\\";
    constexpr DWORD mostLetters = 32768;
    const std::wstring name = wide(path);
    std::wstring whole(mostLetters, L'\0');
    const DWORD length = GetFullPathNameW(name.c_str(), mostLetters, whole.data(), nullptr);
    if (length < mostLetters && whole.starts_with(devices)) return true;
    const DWORD attributes = GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// A file that may be written has no rights of its own here: who may use it is the folder's matter.
std::optional<unsigned> rightsOf(const std::string& path) {
    if (GetFileAttributesW(wide(path).c_str()) == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return 0U;
}

bool mayBeWritten(const std::string& path) {
    constexpr int writing = 2;
    return _waccess(wide(path).c_str(), writing) == 0;
}

void giveRights(int /*descriptor*/, unsigned /*rights*/) {}

bool linkAs(int /*descriptor*/, const std::string& /*name*/) {
    errno = ENOSYS;
    return false;
}

bool renameOpen(int& descriptor, const std::string& from, const std::string& to) {
    const bool closed = _close(descriptor) == 0;
    descriptor = -1;
    if (!closed) return false;
    return MoveFileExW(wide(from).c_str(), wide(to).c_str(), MOVEFILE_REPLACE_EXISTING) != 0 ||
           failWithLastError();
}

}  // namespace melvane
#endif
