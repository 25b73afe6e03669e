#include "jr/JrForm.h"
#include "platform/Machine.h"

int main() {
    jr::JrForm form;
    return form.Start(platform::commandLine()) ? platform::runMessageLoop() : 1;
}
