#include "settings/StartEntries.h"

#include "platform/Machine.h"
#include "platform/RunList.h"
#include "text/Case.h"

namespace settings {

std::string OwnStartEntry() {
    const std::string path = platform::programPath();
    const std::string_view file = text::FileNameOf(path);
    return std::string(file.substr(0, file.rfind('.')));
}

std::string StartProgram(const std::string& folder, const std::string& name) {
    const char* separator = folder.ends_with('\\') ? "" : "\\";
    return folder + separator + name + ".exe";
}

bool IsStartEntry(const std::string& name) {
    return platform::runEntryExists(name);
}

void SetStartEntry(const std::string& name, const std::string& folder, bool add, const std::string& arguments) {
    if (!add) {
        platform::deleteRunEntry(name);
        return;
    }
    // The command has always been stored with a NUL of its own.
    platform::writeRunEntry(name, StartProgram(folder, name) + arguments + '\0');
}

}  // namespace settings
