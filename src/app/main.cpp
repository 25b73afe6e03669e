#include "app/Form1.h"

int main() {
    app::Form1 form;
    if (!form.Start()) return 1;
    return platform::runMessageLoop();
}
