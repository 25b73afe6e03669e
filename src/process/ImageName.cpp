#include "process/ImageName.h"

#include "platform/Machine.h"
#include "text/Split.h"

namespace process {

namespace {
constexpr char kDevicePrefix[] = "\\??\\";
constexpr char kSystemRoot[] = "\\SystemRoot\\";
}  // namespace

std::string WindowsDirectoryWithSlash() {
    std::string directory = platform::windowsDirectory();
    // A Windows directory that is a drive's root already ends in "\".
    if (!directory.empty() && directory.back() != '\\') directory += '\\';
    return directory;
}

std::string NormalizedModulePath(const std::string& path, const std::string& windowsDirectory) {
    return text::ReplaceAll(text::ReplaceAll(path, kDevicePrefix, ""), kSystemRoot, windowsDirectory);
}

}  // namespace process
