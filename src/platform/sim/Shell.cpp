// The shell of the simulated machine: its file chooser is answered by the test, documents are only remembered.
#include "platform/Shell.h"

#include "platform/Files.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

std::optional<std::string> chooseFile(Window&, const std::string& title, const std::vector<FileType>&) {
    sim::note("chooseFile", title);
    sim::beginModal(0);
    sim::run(sim::kModalMilliseconds);
    sim::endModal(0);
    auto& answers = sim::machine().desktop.fileAnswers;
    if (answers.empty()) return std::nullopt;
    std::optional<std::string> answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

bool openDocument(Window&, const std::string& path) {
    sim::note("openDocument", path);
    if (!sim::machine().shellRunning || !fileExists(path)) return false;
    sim::machine().openedDocuments.push_back(path);
    return true;
}

bool launch(Window&, const std::string& file, const std::optional<std::string>& parameters,
            const std::string& folder) {
    sim::note("launch", parameters ? file + " " + *parameters : file);
    sim::machine().launches.push_back({file, parameters, folder});
    return sim::machine().shellRunning && (fileExists(folder + file) || fileExists(file));
}

std::vector<sim::Launch> sim::launches() {
    return machine().launches;
}

std::vector<std::string> sim::openedDocuments() {
    return machine().openedDocuments;
}

void sim::whenChoosingFile(std::optional<std::string> answer) {
    machine().desktop.fileAnswers.push_back(std::move(answer));
}

}  // namespace platform
