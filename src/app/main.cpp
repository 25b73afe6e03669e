#include "app/Form1.h"
#include "platform/Libraries.h"

int main() {
    platform::searchLibrariesInSystemFolderOnly();
    app::Form1 form;
    switch (form.Start()) {
        case app::Form1::StartResult::Running:
            return form.Run();
        case app::Form1::StartResult::Duplicate:
            return 0;
        case app::Form1::StartResult::Failed:
            break;
    }
    return 1;
}
