#include "base/windows/errors.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "base/system_calls.h"

namespace qor::sistema {

namespace {

struct Par {
    DWORD deWindows;
    int deC;
};

constexpr Par pares[] = {{ERROR_SUCCESS, 0},
                         {ERROR_FILE_NOT_FOUND, ENOENT},
                         {ERROR_PATH_NOT_FOUND, ENOENT},
                         {ERROR_INVALID_NAME, ENOENT},
                         {ERROR_BAD_PATHNAME, ENOENT},
                         {ERROR_BAD_NETPATH, ENOENT},
                         {ERROR_BAD_NET_NAME, ENOENT},
                         {ERROR_INVALID_DRIVE, ENOENT},
                         {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
                         {ERROR_ACCESS_DENIED, EACCES},
                         {ERROR_SHARING_VIOLATION, EACCES},
                         {ERROR_LOCK_VIOLATION, EWOULDBLOCK},
                         {ERROR_IO_PENDING, EWOULDBLOCK},
                         {ERROR_WRITE_PROTECT, EROFS},
                         {ERROR_FILE_EXISTS, EEXIST},
                         {ERROR_ALREADY_EXISTS, EEXIST},
                         {ERROR_DISK_FULL, ENOSPC},
                         {ERROR_HANDLE_DISK_FULL, ENOSPC},
                         {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
                         {ERROR_OUTOFMEMORY, ENOMEM},
                         {ERROR_INVALID_HANDLE, EINVAL},
                         {ERROR_INVALID_FUNCTION, EINVAL},
                         {ERROR_INVALID_PARAMETER, EINVAL},
                         {ERROR_NOT_SUPPORTED, EINVAL},
                         {ERROR_NEGATIVE_SEEK, EINVAL},
                         {ERROR_DIRECTORY, ENOTDIR},
                         {ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
                         {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
                         {ERROR_BROKEN_PIPE, EPIPE},
                         {ERROR_NO_DATA, EPIPE},
                         {ERROR_NOT_SAME_DEVICE, EXDEV},
                         {ERROR_PRIVILEGE_NOT_HELD, EPERM},
                         {ERROR_CANT_RESOLVE_FILENAME, ELOOP}};

}  // namespace

int ErrorDeC(int delSistema) {
    const auto error = static_cast<DWORD>(delSistema);
    const auto* const par =
        std::find_if(std::begin(pares), std::end(pares), [error](const Par& uno) { return uno.deWindows == error; });
    return par == std::end(pares) ? EIO : par->deC;
}

int FallarComoC() {
    errno = ErrorDeC(static_cast<int>(::GetLastError()));
    return -1;
}

}  // namespace qor::sistema
