#include "jr/JrForm.h"
#include "platform/Libraries.h"
#include "platform/Machine.h"

int main() {
    platform::searchLibrariesInSystemFolderOnly();
    jr::JrForm form;
    return form.Start(platform::commandLine()) ? platform::runMessageLoop() : 1;
}
