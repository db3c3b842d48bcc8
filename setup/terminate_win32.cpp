// How the program ends when an exception finds no handler, or is thrown where none may be.
#include <cstdlib>
#include <exception>

// In place of the C++ library's own handler: that writes the name of the exception's type to a console, which this
// program does not have, and its demangler would be the largest piece of code in here.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the library's.
void __gnu_cxx::__verbose_terminate_handler() {
    std::abort();
}
