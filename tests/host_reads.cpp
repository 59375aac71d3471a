#include "host_reads.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/types.h>

Reads reads;

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
}
