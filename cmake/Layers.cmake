# SPDX-License-Identifier: GPL-3.0-or-later
# A layer is the static library of one folder below src/, made by that folder's CMakeLists.txt. It
# links the layers that its files may include, all of them on lower floors, and nothing else; those
# without Qt among their libraries are kept free of it by the linker. scripts/check-layers.sh reads
# the calls, so they name their libraries literally.

# add_layer(NAME SOURCES FILE... [LINK LIBRARY...])
function(add_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 layer "" "" "SOURCES;LINK")
    add_library(${name} STATIC ${layer_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${layer_LINK} PRIVATE vx3260_settings)
endfunction()

# The same for a layer with forms: moc, uic and rcc run on it.
function(add_form_layer name)
    add_layer(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
    target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
endfunction()
