// desktop.exe PRODUCT_FOLDER [doctest options]
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include "desktop/Driver.h"

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    desktop::ProductFolder() = std::string(argv[1]) + "\\";
    doctest::Context context(argc - 1, argv + 1);
    return context.run();
}
