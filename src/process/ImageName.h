// Paths of program files, as the system's process table writes them and as people read them.
#pragma once

#include <string>

namespace process {

// The Windows directory with a trailing "\"; empty when the system does not tell. GetWindowsDirectoryA.
std::string WindowsDirectoryWithSlash();

// Without "\??\", and with "\SystemRoot\" replaced by the Windows directory (with its trailing "\"). Letter
// case matters.
std::string NormalizedModulePath(const std::string& path, const std::string& windowsDirectory);

}  // namespace process
