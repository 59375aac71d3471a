#include "host_loads.h"

LibraryLoads libraryLoads;

extern "C" {

void *__real_dlopen(const char *name, int flags);
void *__wrap_dlopen(const char *name, int flags);
void *__wrap_dlopen(const char *name, int flags) {
    ++libraryLoads.calls;
    libraryLoads.name = name;
    return libraryLoads.failure == LibraryLoads::Failure::library ? nullptr : __real_dlopen(name, flags);
}

void *__real_dlsym(void *library, const char *name);
void *__wrap_dlsym(void *library, const char *name);
void *__wrap_dlsym(void *library, const char *name) {
    return libraryLoads.failure == LibraryLoads::Failure::function ? nullptr : __real_dlsym(library, name);
}
}
