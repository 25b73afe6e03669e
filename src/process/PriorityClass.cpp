#include "process/PriorityClass.h"

namespace process {

std::string_view PriorityName(std::uint32_t value) {
    for (const PriorityClassName& entry : kPriorityClasses) {
        if (entry.value == value) return entry.name;
    }
    return {};
}

std::uint32_t PriorityValue(std::string_view name) {
    for (const PriorityClassName& entry : kPriorityClasses) {
        if (entry.name == name) return entry.value;
    }
    return 0;
}

}  // namespace process
