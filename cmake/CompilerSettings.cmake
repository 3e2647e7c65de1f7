# SPDX-License-Identifier: GPL-3.0-or-later
# What every target of this project is compiled with, as the interface target vx3260_settings. The
# presets make errors of the warnings.
add_library(vx3260_settings INTERFACE)
set(warnings
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
    # GCC 12 reports overlaps in "text" + std::string that do not exist.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_options(vx3260_settings INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:${warnings}>
    $<$<CONFIG:Debug>:-D_GLIBCXX_ASSERTIONS>)

# Hardening; scripts/check-hardening.sh looks for it in the finished programs.
if(NOT WIN32)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    include(CheckPIESupported)
    check_pie_supported()
    set(hardened $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
    target_compile_options(vx3260_settings INTERFACE
        "$<${hardened}:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    target_link_options(vx3260_settings INTERFACE "$<${hardened}:LINKER:-z,relro,-z,now>")
endif()

if(VX3260_SANITIZERS)
    target_compile_options(vx3260_settings INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        # Reports the branches that were taken, for libFuzzer.
        $<$<CXX_COMPILER_ID:Clang>:-fsanitize=fuzzer-no-link>)
    target_link_options(vx3260_settings INTERFACE -fsanitize=address,undefined)
endif()
