#include "output_file.h"

#include "app/run.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <pthread.h>
#include <sys/types.h>

OutputFile outputFile;

namespace {

/// Where `path` leads for a test.
const char *placeOf(const char *path) {
    if (std::strcmp(path, "/tmp/config") != 0) return path;
    EXPECT_NE("", outputFile.standsForDefault) << "this test does not expect the default path";
    return outputFile.standsForDefault.c_str();
}

void note(const std::string &event) {
    if (outputFile.recorded) outputFile.events.push_back(event);
}

ssize_t take(void *, const char *bytes, std::size_t size) {
    note("write " + std::to_string(size));
    const std::size_t room = outputFile.room - outputFile.contents.size();
    const std::size_t taken = size < room ? size : room;
    outputFile.contents.append(bytes, taken);
    return static_cast<ssize_t>(taken);
}

int finish(void *) {
    note("close");
    if (!outputFile.closeFails) return 0;
    errno = EIO;
    return -1;
}

} // namespace

extern "C" {

std::FILE *__real_fopen(const char *path, const char *mode);
std::FILE *__wrap_fopen(const char *path, const char *mode);
std::FILE *__wrap_fopen(const char *path, const char *mode) {
    if (std::strcmp(mode, "r") == 0) return __real_fopen(path, mode); // the test framework's
    outputFile.opened.emplace_back(path);
    if (!outputFile.recorded) return __real_fopen(placeOf(path), mode);
    note(std::string("open ") + path + " " + mode);
    if (outputFile.cannotBeOpened) return nullptr;
    return fopencookie(nullptr, mode, {nullptr, take, nullptr, finish});
}

int __real_truncate(const char *path, off_t size);
int __wrap_truncate(const char *path, off_t size);
int __wrap_truncate(const char *path, off_t size) {
    if (!outputFile.recorded) return __real_truncate(placeOf(path), size);
    note(std::string("truncate ") + path + " " + std::to_string(size));
    if (outputFile.interruptions > 0 || outputFile.cannotBeEmptied) {
        errno = outputFile.interruptions-- > 0 ? EINTR : EIO;
        return -1;
    }
    outputFile.contents.resize(static_cast<std::size_t>(size));
    return 0;
}

int __real_pthread_mutex_lock(pthread_mutex_t *mutex);
int __wrap_pthread_mutex_lock(pthread_mutex_t *mutex);
int __wrap_pthread_mutex_lock(pthread_mutex_t *mutex) {
    if (mutex == &CfgFileMutex) note("lock");
    return __real_pthread_mutex_lock(mutex);
}

int __real_pthread_mutex_unlock(pthread_mutex_t *mutex);
int __wrap_pthread_mutex_unlock(pthread_mutex_t *mutex);
int __wrap_pthread_mutex_unlock(pthread_mutex_t *mutex) {
    if (mutex == &CfgFileMutex) note("unlock");
    return __real_pthread_mutex_unlock(mutex);
}
}
