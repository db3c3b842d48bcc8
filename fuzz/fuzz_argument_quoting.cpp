#include "base/argument_quoting.h"
#include "fuzz/fuzz_input.h"
#include "tests/portable/argv_reference.h"

using fuzz::require;
using testing_reference::splitArguments;

namespace {

void checkRoundTrip(const std::vector<std::wstring>& arguments) {
    require(splitArguments(base::joinArguments(arguments)) == arguments, "joined arguments read back equal");
}

}  // namespace

// Each line of the input is an argument; and the whole input is a command line.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::units(fuzz::bytes(data, size));
    const std::vector<std::wstring> arguments = fuzz::lines(text);
    checkRoundTrip(arguments);
    checkRoundTrip(splitArguments(text));
    for (const std::wstring& argument : arguments) {
        const std::wstring quoted = base::quoteArgument(argument);
        const bool plain = !argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos;
        require(plain == (quoted == argument), "only what needs quotes gets them");
        require(quoted.size() <= 2 * argument.size() + 2, "quoting adds at most a backslash a character");
    }
    return 0;
}
