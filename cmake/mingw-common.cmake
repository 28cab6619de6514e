# Shared by both MinGW toolchain files; ZV_TRIPLET names the target.
set(CMAKE_C_COMPILER ${ZV_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZV_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${ZV_TRIPLET}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${ZV_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Tests and tools run under Wine; only the 64-bit loader is installed.
# Debian's wine wrapper picks the 64-bit loader when no 32-bit one exists.
find_program(ZV_WINE NAMES wine)
set(CMAKE_CROSSCOMPILING_EMULATOR ${ZV_WINE})
