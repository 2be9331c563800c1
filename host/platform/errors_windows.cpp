#include "platform/errors.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/windows.h"

namespace platform {

namespace {

// What mingw's header does not name.
constexpr DWORD kVirusInfected = 225;
constexpr DWORD kVirusDeleted = 226;
constexpr DWORD kUntrustedMountPoint = 448;
constexpr DWORD kStoppedOnSymlink = 681;
constexpr DWORD kDiskQuotaExceeded = 1295;

struct Meaning {
  int number;
  const char* text;
  std::array<DWORD, 16> errors;  // of the system, with zeros after them
};

constexpr Meaning kMeanings[] = {
    {EPERM, "Operation not permitted", {ERROR_PRIVILEGE_NOT_HELD}},
    {ENOENT,
     "No such file or directory",
     {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_DRIVE, ERROR_INVALID_NAME, ERROR_BAD_PATHNAME,
      ERROR_BAD_NETPATH, ERROR_BAD_NET_NAME, ERROR_NO_NET_OR_BAD_PATH}},
    {EIO, "Input/output error", {}},  // which is told for all that is not here
    {ENXIO,
     "No such device or address",
     {ERROR_NOT_READY, ERROR_NO_MEDIA_IN_DRIVE, ERROR_WRONG_DISK, ERROR_DEVICE_NOT_CONNECTED,
      ERROR_DEV_NOT_EXIST, ERROR_NETNAME_DELETED, ERROR_REM_NOT_LIST, ERROR_DEVICE_REMOVED}},
    {EBADF, "Bad file descriptor", {ERROR_INVALID_HANDLE}},
    {ENOMEM,
     "Cannot allocate memory",
     {ERROR_NOT_ENOUGH_MEMORY, ERROR_OUTOFMEMORY, ERROR_NO_SYSTEM_RESOURCES, ERROR_NOT_ENOUGH_QUOTA,
      ERROR_COMMITMENT_LIMIT}},
    {EACCES,
     "Permission denied",
     {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_USER_MAPPED_FILE,
      ERROR_DELETE_PENDING, ERROR_UNABLE_TO_REMOVE_REPLACED, ERROR_NETWORK_ACCESS_DENIED, ERROR_LOGON_FAILURE,
      ERROR_DRIVE_LOCKED, ERROR_ACCESS_DISABLED_BY_POLICY, ERROR_ENCRYPTION_FAILED, ERROR_DECRYPTION_FAILED,
      kVirusInfected, kVirusDeleted, kUntrustedMountPoint}},
    {EBUSY, "Device or resource busy", {ERROR_BUSY, ERROR_PATH_BUSY, ERROR_BUSY_DRIVE, ERROR_NETWORK_BUSY}},
    {EEXIST, "File exists", {ERROR_FILE_EXISTS, ERROR_ALREADY_EXISTS}},
    {EXDEV, "Invalid cross-device link", {ERROR_NOT_SAME_DEVICE}},
    {ENODEV, "No such device", {ERROR_BAD_UNIT, ERROR_UNRECOGNIZED_VOLUME, ERROR_UNRECOGNIZED_MEDIA}},
    {ENOTDIR, "Not a directory", {ERROR_DIRECTORY}},
    {EISDIR, "Is a directory", {}},
    {EINVAL,
     "Invalid argument",
     {ERROR_INVALID_PARAMETER, ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED, ERROR_NEGATIVE_SEEK}},
    {EMFILE, "Too many open files", {ERROR_TOO_MANY_OPEN_FILES, ERROR_SHARING_BUFFER_EXCEEDED}},
    {EFBIG, "File too large", {ERROR_FILE_TOO_LARGE}},
    {ENOSPC,
     "No space left on device",
     {ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL, kDiskQuotaExceeded, ERROR_CANNOT_MAKE}},
    {EROFS, "Read-only file system", {ERROR_WRITE_PROTECT}},
    {EPIPE, "Broken pipe", {ERROR_BROKEN_PIPE, ERROR_NO_DATA}},
    {ENAMETOOLONG, "File name too long", {ERROR_FILENAME_EXCED_RANGE, ERROR_BUFFER_OVERFLOW}},
    {EILSEQ, "Invalid or incomplete multibyte or wide character", {ERROR_NO_UNICODE_TRANSLATION}},
    {ELOOP,
     "Too many levels of symbolic links",
     {ERROR_CANT_RESOLVE_FILENAME, kStoppedOnSymlink, ERROR_SYMLINK_CLASS_DISABLED}},
    {ETIMEDOUT, "Connection timed out", {ERROR_SEM_TIMEOUT, ERROR_TIMEOUT}},
    {ENETUNREACH,
     "Network is unreachable",
     {ERROR_NETWORK_UNREACHABLE, ERROR_HOST_UNREACHABLE, ERROR_UNEXP_NET_ERR}}};

}  // namespace

int ErrorNumber(DWORD error) {
  if (error == ERROR_SUCCESS) return 0;
  const auto* const meaning =
      std::find_if(std::begin(kMeanings), std::end(kMeanings), [error](const Meaning& each) {
        return std::find(each.errors.begin(), each.errors.end(), error) != each.errors.end();
      });
  return meaning != std::end(kMeanings) ? meaning->number : EIO;
}

// The C library has other words for some, and none for others.
std::string ErrorText(int error) {
  const auto* const meaning = std::find_if(std::begin(kMeanings), std::end(kMeanings),
                                           [error](const Meaning& each) { return each.number == error; });
  return meaning != std::end(kMeanings) ? meaning->text : std::generic_category().message(error);
}

}  // namespace platform
