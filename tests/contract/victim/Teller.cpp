// Tells what it was started with: writes what commandLine gives to a file in the folder it works in.
#include "platform/Files.h"
#include "platform/Machine.h"

int main() {
    return platform::writeNewFile("answer.txt", platform::commandLine()) ? 0 : 1;
}
