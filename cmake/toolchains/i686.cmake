# Debian's cross compiler for i686.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/i686-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
# Values are computed in single precision. The x87 registers are more precise, so SSE is used.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
# Tests run without an emulator if this machine runs 32-bit programs and has their loader. Otherwise they run in
# qemu-user, which may hang in programs with threads when it emulates i386 on an x86 machine.
execute_process(COMMAND /lib/ld-linux.so.2 --version RESULT_VARIABLE KEL_I686_NATIVO OUTPUT_QUIET ERROR_QUIET)
if(NOT KEL_I686_NATIVO EQUAL 0)
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-i386 -L /usr/i686-linux-gnu)
endif()
