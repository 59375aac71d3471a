#include "host_reads.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

Reads reads;
Writes writes;

extern "C" {

ssize_t __real_read(int descriptor, void *bytes, std::size_t size);
ssize_t __wrap_read(int descriptor, void *bytes, std::size_t size);
ssize_t __wrap_read(int descriptor, void *bytes, std::size_t size) {
    ++reads.calls;
    reads.asked = size;
    if ((fcntl(descriptor, F_GETFD) & FD_CLOEXEC) == 0) ++reads.inherited;
    if (reads.interruptions > 0) {
        --reads.interruptions;
        errno = EINTR;
        return -1;
    }
    if (reads.left == 0 && reads.error != 0) {
        errno = reads.error;
        return -1;
    }
    const ssize_t count = __real_read(descriptor, bytes, std::min({size, reads.most, reads.left}));
    if (count > 0) reads.left -= static_cast<std::size_t>(count);
    return count;
}

ssize_t __real_write(int descriptor, const void *bytes, std::size_t size);
ssize_t __wrap_write(int descriptor, const void *bytes, std::size_t size);
ssize_t __wrap_write(int descriptor, const void *bytes, std::size_t size) {
    ++writes.calls;
    writes.written = descriptor;
    if (writes.interruptions > 0) {
        --writes.interruptions;
        errno = EINTR;
        return -1;
    }
    return __real_write(descriptor, bytes, std::min(size, writes.most));
}

int __real_fstatat(int folder, const char *name, struct stat *status, int flags);
int __wrap_fstatat(int folder, const char *name, struct stat *status, int flags);
int __wrap_fstatat(int folder, const char *name, struct stat *status, int flags) {
    if (writes.lookError == 0) return __real_fstatat(folder, name, status, flags);
    errno = writes.lookError;
    return -1;
}

int __real_close(int descriptor);
int __wrap_close(int descriptor);
int __wrap_close(int descriptor) {
    const bool fails = writes.closeError != 0 && descriptor == writes.written;
    const int result = __real_close(descriptor);
    if (!fails) return result;
    errno = writes.closeError;
    return -1;
}
}
