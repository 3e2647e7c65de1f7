# SPDX-License-Identifier: GPL-3.0-or-later
# vx3260_ftdi, for boards on an FTDI chip: libftdi1 where it is installed, on Linux; else nothing. A
# static program with the property VX3260_WITHOUT_FTDI does without.
add_library(vx3260_ftdi INTERFACE)
find_package(PkgConfig)
if(PkgConfig_FOUND AND NOT WIN32)
    pkg_check_modules(libftdi IMPORTED_TARGET libftdi1)
endif()
if(libftdi_FOUND)
    target_link_libraries(vx3260_ftdi INTERFACE
        $<$<NOT:$<BOOL:$<TARGET_PROPERTY:VX3260_WITHOUT_FTDI>>>:PkgConfig::libftdi>)
endif()
