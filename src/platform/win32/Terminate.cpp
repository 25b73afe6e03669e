// What happens when an exception finds no handler. The library's own function writes its name to a console that
// these programs don't have, and brings along a demangler and a formatter of numbers: a tenth of the program.
#include <cstdlib>

namespace __gnu_cxx {

void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx
