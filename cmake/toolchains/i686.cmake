# Debian's cross compiler for i686.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/i686-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
# Single precision must be single precision: the x87 registers hold more.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
# Tests run as they are where the kernel runs 32-bit programs and the loader lies where they look for it. Only elsewhere
# through qemu-user, whose i386 on an x86 machine hangs in programs with threads.
execute_process(COMMAND /lib/ld-linux.so.2 --version RESULT_VARIABLE KEL_I686_NATIVO OUTPUT_QUIET ERROR_QUIET)
if(NOT KEL_I686_NATIVO EQUAL 0)
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-i386 -L /usr/i686-linux-gnu)
endif()
