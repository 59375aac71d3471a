# A 32-bit big-endian MIPS with Linux, as the switch is, built with Debian's cross compiler and run under emulation.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR mips)

set(CMAKE_C_COMPILER mips-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER mips-linux-gnu-g++)

# Headers and libraries come from the target alone.
set(CMAKE_FIND_ROOT_PATH /usr/mips-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs linked dynamically find their libraries below -L; static ones do not ask.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mips-static -L /usr/mips-linux-gnu)

# A program for flash: at a fixed address, without the code that a shared object needs.
set(CMAKE_C_FLAGS_INIT "-fno-pie -mno-shared -mplt")
set(CMAKE_CXX_FLAGS_INIT "-fno-pie -mno-shared -mplt")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-no-pie")
