// Filter files: any bytes are read without harm, and what is saved loads as it was, but for names with commas.
#include <string>
#include <vector>

#include "Fuzz.h"
#include "filter/FileFilter.h"
#include "filter/FilterFile.h"
#include "platform/sim/Sim.h"

namespace {

constexpr const char* kPath = "C:\\Kestrum\\FileFilter";

filter::cList Listed(std::string_view content) {
    filter::cList names;
    for (const std::string_view name : filter::ParseFilter(content)) {
        fuzz::Require(!name.empty() && name.front() != ' ' && name.back() != ' ');
        fuzz::Require(name.find_first_of("\r\n") == std::string_view::npos);
        names.AddItem(name);
    }
    return names;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    platform::sim::reset();
    const std::string_view content = fuzz::Text(data, size);
    // Names with commas come apart once; after that nothing changes any more.
    const std::string settled = filter::FormatFilter(Listed(filter::FormatFilter(Listed(content))));
    fuzz::Require(filter::FormatFilter(Listed(settled)) == settled);

    platform::sim::putFile(kPath, std::string(content));
    filter::FileFilter filter("C:\\Kestrum\\");
    fuzz::Require(filter.Load() == !filter.Empty());
    for (int index = 0; index < filter.Count(); ++index) fuzz::Require(filter.Contains(filter.Name(index)));
    fuzz::Require(filter.Save());
    fuzz::Require(platform::sim::file(kPath).has_value() == !filter.Empty());
    return 0;
}
