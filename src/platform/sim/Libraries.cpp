#include "platform/Libraries.h"

#include "platform/sim/SimMachine.h"

namespace platform {

void searchLibrariesInSystemFolderOnly() {
    sim::note("searchLibrariesInSystemFolderOnly");
}

}  // namespace platform
