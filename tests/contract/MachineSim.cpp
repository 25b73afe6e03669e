#include "contract/Machine.h"
#include "platform/sim/Sim.h"

namespace contract {

namespace sim = platform::sim;

void freshMachine() {
    sim::reset();
    sim::putFolder("C:\\Scratch");
    sim::putFile("C:\\WINDOWS\\notepad.exe", "");
}

void putStored(const std::string& key, StoredAs kind, const std::string& bytes) {
    // The simulated store knows one kind of value that is not text.
    if (kind == StoredAs::Text) {
        sim::putSetting(kSection, key, bytes);
    } else {
        sim::putBinarySetting(kSection, key);
    }
}

std::optional<std::string> storedRunEntry(const std::string& name) {
    return sim::runEntry(name);
}

std::string scratchFolder() {
    return "C:\\Scratch\\";
}

std::string sealedFile() {
    const std::string path = scratchFolder() + "sealed.txt";
    sim::putFile(path, "old");
    sim::holdFile(path);
    return path;
}

void makeLink(const std::string& path, const std::string& target) {
    if (const auto content = sim::file(target)) {
        sim::putFile(path, *content);
    } else {
        sim::putFolder(path);
    }
    sim::setLink(path);
}

void holdClosedMutex(const std::string& name) {
    sim::holdMutex(name, sim::Others::Denied);
}

Victim::Victim(Load load) : path_("C:\\Scratch\\Victim.exe") {
    start(load);
}

Victim::Victim(const std::string& path) : path_(path) {
    start(Load::Idle);
}

void Victim::start(Load load) {
    sim::Process process;
    process.path = path_;
    process.load = load == Load::Busy ? 1.0 : 0.0;
    id_ = sim::addProcess(process);
}

Victim::~Victim() {
    end();
}

void Victim::end() {
    if (native_ == 0) sim::endProcess(id_);
    native_ = 1;
}

bool waitFor(const std::function<bool()>& condition, std::uint32_t milliseconds) {
    for (std::uint32_t waited = 0; waited <= milliseconds; waited += 10) {
        if (condition()) return true;
        sim::run(10);
    }
    return condition();
}

}  // namespace contract
