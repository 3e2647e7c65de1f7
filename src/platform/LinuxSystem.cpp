#include "platform/LinuxSystem.h"

#include <cstdlib>

namespace vx3260 {

LinuxSystem::LinuxSystem(int argumentCount, const char* const* arguments) {
    for (int i = 1; i < argumentCount; ++i) {
        commandLine_ += i == 1 ? "" : " ";
        commandLine_ += arguments[i];
    }
}

void LinuxSystem::EndProcess(int exitCode) {
    std::_Exit(exitCode);
}

}  // namespace vx3260
