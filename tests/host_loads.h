/// The libraries that the stand-in loads: the linker puts functions of the tests in the place of `dlopen` and `dlsym`.
#pragma once

#include <string>

struct LibraryLoads {
    enum class Failure { none, library, function };
    int calls = 0;                   ///< of dlopen
    std::string name;                ///< of the library that was asked for last
    Failure failure = Failure::none; ///< what is not found
};

extern LibraryLoads libraryLoads;
