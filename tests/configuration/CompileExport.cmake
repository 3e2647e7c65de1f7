# SPDX-License-Identifier: GPL-3.0-or-later
# Compiles what "vx3260-cli export" prints as C99 and as C++: -DCLI= -DCOMPILER= -DFOLDER=
file(MAKE_DIRECTORY ${FOLDER})
execute_process(COMMAND ${CLI} --simulated export --coefficients
    OUTPUT_FILE ${FOLDER}/configuration.h COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${FOLDER}/main.c
    "#include \"configuration.h\"\n"
    "int main(void) {\n"
    "    const unsigned count = sizeof vx3260_configuration / sizeof vx3260_configuration[0];\n"
    "    return count == VX3260_CONFIGURATION_COUNT && vx3260_configuration[1].value == 0x45 ? 0 : 1;\n"
    "}\n")
foreach(standard IN ITEMS c99 c++11)
    string(REGEX REPLACE "[0-9]+$" "" language ${standard})
    execute_process(COMMAND ${COMPILER} -x ${language} -std=${standard} -Wall -Wextra -pedantic
        -Werror -fsyntax-only ${FOLDER}/main.c COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND ${COMPILER} -x c++ ${FOLDER}/main.c -o ${FOLDER}/main
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${FOLDER}/main COMMAND_ERROR_IS_FATAL ANY)
