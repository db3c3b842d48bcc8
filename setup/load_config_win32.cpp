// The load configuration of the program file: what the Windows loader reads before any code runs. It holds one thing,
// that DLLs which Windows loads for this program come from System32. The linker only places it; a step of the build
// (tools/build/set_load_config.py) enters it into the file's header, which this toolchain's linker leaves empty.
#include <windows.h>

namespace {

constexpr IMAGE_LOAD_CONFIG_DIRECTORY64 makeLoadConfig() {
    IMAGE_LOAD_CONFIG_DIRECTORY64 config{};
    config.Size = sizeof(config);
    config.Reserved1 = LOAD_LIBRARY_SEARCH_SYSTEM32;  // called DependentLoadFlags in newer headers
    return config;
}

}  // namespace

extern "C" {
extern const IMAGE_LOAD_CONFIG_DIRECTORY64 kVelquinLoadConfig;
__attribute__((section(".loadcfg"))) constinit const IMAGE_LOAD_CONFIG_DIRECTORY64 kVelquinLoadConfig =
    makeLoadConfig();
}
