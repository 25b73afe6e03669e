// endurance.exe PRODUCT_FOLDER soak MINUTES
// endurance.exe PRODUCT_FOLDER kill TIMES [SEED [STEP]]
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "desktop/Driver.h"
#include "endurance/Kill.h"
#include "endurance/Soak.h"

namespace {

bool Run(const char* what, int amount, unsigned seed, int step) {
    if (std::strcmp(what, "soak") == 0) return endurance::Soak(amount);
    return endurance::Kill(amount, seed, step);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4 || std::atoi(argv[3]) < 1) return 2;
    desktop::ProductFolder() = std::string(argv[1]) + "\\";
    const unsigned seed =
        argc > 4 ? static_cast<unsigned>(std::strtoul(argv[4], nullptr, 10)) : GetTickCount() % 100000;
    const bool good = Run(argv[2], std::atoi(argv[3]), seed, argc > 5 ? std::atoi(argv[5]) : 1);
    std::printf("%s: %s\n", argv[2], good ? "passed" : "FAILED");
    return good ? 0 : 1;
}
