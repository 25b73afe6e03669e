// endurance.exe PRODUCT_FOLDER soak MINUTES
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "desktop/Driver.h"
#include "endurance/Soak.h"

int main(int argc, char** argv) {
    if (argc < 4) return 2;
    desktop::ProductFolder() = std::string(argv[1]) + "\\";
    const bool good = std::strcmp(argv[2], "soak") == 0 && endurance::Soak(std::atoi(argv[3]));
    std::printf("%s: %s\n", argv[2], good ? "passed" : "FAILED");
    return good ? 0 : 1;
}
