# What every target of the project is compiled with.
#
# vellum_exact: the same bits on every compiler and machine. No product is fused into an addition, and nothing relaxes
# IEEE arithmetic.
# vellum_warnings: the warnings that the project holds itself to.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES AND PROJECT_IS_TOP_LEVEL)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Release, Debug, RelWithDebInfo or MinSizeRel" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(vellum_exact INTERFACE)
target_compile_options(vellum_exact INTERFACE -ffp-contract=off)

if(MINGW)
    # What is built needs the system's own DLLs and none of the compiler's.
    add_link_options(-static)
    # printf and its family as the C standard has them, not as Windows has.
    add_compile_definitions(__USE_MINGW_ANSI_STDIO=1)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        # On 64-bit Windows the stack is aligned to 16 bytes. For vectors of 32 and 64 bytes g++ counts on more, and what
        # it keeps on the stack would fault. The assembler makes their moves ones that take any address.
        add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wa,-muse-unaligned-vector-move>)
    endif()
endif()

add_library(vellum_warnings INTERFACE)
target_compile_options(vellum_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(VELLUM_WERROR)
    target_compile_options(vellum_warnings INTERFACE -Werror)
endif()

if(VELLUM_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
