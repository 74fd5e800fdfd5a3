# Builds for another MACHINE with Debian's cross compiler. The programs of i386 run here as they are, those of the
# others under qemu. Libraries that no compiler brings lie in the build directory, where scripts/setup unpacks them;
# headers that are the same for every machine are those of this one.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MACHINE)
set(processor_i386 i686)
set(processor_arm64 aarch64)
set(processor_s390x s390x)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${processor_${MACHINE}})
set(CMAKE_CXX_COMPILER ${CMAKE_SYSTEM_PROCESSOR}-linux-gnu-g++)
if(MACHINE STREQUAL i386)
  set(CMAKE_CROSSCOMPILING_EMULATOR setarch i386)
else()
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${CMAKE_SYSTEM_PROCESSOR} -L /usr/${CMAKE_SYSTEM_PROCESSOR}-linux-gnu)
  if(MACHINE STREQUAL arm64)
    # On newer ones qemu works out the signature of every return address: that takes 30 times as long.
    list(APPEND CMAKE_CROSSCOMPILING_EMULATOR -cpu cortex-a72)
  endif()
endif()
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR}/build-${MACHINE}/debian)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# A program's path serves the libraries of its libraries, too.
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,--disable-new-dtags)
