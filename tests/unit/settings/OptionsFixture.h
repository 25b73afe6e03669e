// What the tests of the options dialog share: the dialog over a main window, and a program around it that notes
// what it is asked for.
#pragma once

#include <doctest/doctest.h>

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/sim/Sim.h"
#include "settings/FrmOptions.h"

namespace sim = platform::sim;
namespace key = platform::key;
using settings::Option;
using settings::OptionInfo;
using settings::OptionKind;
using settings::OptionPage;

struct FakeHost : settings::OptionsHost {
    void OptionChanged(settings::Key changed) override { Note(std::string("changed ") + InfoOf(changed).name); }
    void TrayOptionsChanged() override { Note("tray"); }
    void SetHotkeys(bool on) override { Note(on ? "hotkeys on" : "hotkeys off"); }
    void SetGraphsTransparent() override { Note("transparent"); }
    void SetGraphsTranslucent(int percent) override { Note("translucent " + std::to_string(percent)); }
    void SetEdgeDetection(bool on) override { Note(on ? "edge on" : "edge off"); }
    void ReloadGraphOptions() override { Note("graph options"); }
    void RecolorGraphs() override { Note("colours"); }
    void ShowTotalGraph() override { Note("total"); }
    void ViewHelp() override { Note("help"); }
    void ResetColumns() override { Note("columns"); }
    void Restart() override { Note("restart"); }
    void RestoreDefaults() override { Note("defaults"); }
    std::string ProfileCaption(int number) const override {
        return "My Favs " + std::to_string(number) + (profiles.count(number) != 0 ? "" : " (Empty)");
    }
    std::string JrTask(int profile, int seconds) const override {
        return "/My Favs " + std::to_string(profile) + (seconds > 0 ? " /Enforce " + std::to_string(seconds) : "");
    }
    void Note(const std::string& call) { calls.push_back(call); }

    std::vector<std::string> calls;
    std::set<int> profiles{1, 3};
};

struct OptionsBench {
    OptionsBench() {
        REQUIRE(owner.create({platform::WindowKind::Main, "Form1", "Form1", nullptr, {200, 100, 1000, 600}}));
        owner.show(platform::ShowCommand::Show);
    }
    // Opens the dialog, has `script` use it, and closes it by Escape if it is still there.
    void Show(const std::function<void()>& script) {
        dialog.Show(owner);
        script();
        if (dialog.exists()) sim::pressKey(key::kEscape);
        CHECK_FALSE(dialog.exists());
        CHECK(sim::tips().empty());
    }
    // The next message box is noted, and answered by a key.
    void Answer(std::uint16_t code) {
        sim::whenModal([this, code](platform::Window& box) {
            messages.push_back(box.text() + ":");
            for (const sim::Drawn& drawn : sim::paint(box, true)) {
                if (drawn.what == "text") messages.back() += " " + drawn.text;  // line by line
            }
            sim::pressKey(code);
        });
    }

    static void ClickOn(platform::Window& window) {
        const platform::Point at{6, window.clientSize().height / 2};
        sim::setPointer(window, at);
        sim::click(window, at);
    }
    // The user brings up its page and clicks it.
    void Click(Option option) {
        Turn(InfoOf(option).page);
        ClickOn(dialog.ControlOf(option));
    }
    void Turn(OptionPage page) {
        if (page != OptionPage::Below) ClickOn(dialog.PageButton(page));
    }
    void Pick(Option option, int row) {
        Click(option);
        sim::pressKey(key::kHome);
        for (int i = 0; i < row; ++i) sim::pressKey(key::kDown);
        sim::pressKey(key::kEnter);
    }
    controls::GradColorChk& Check(Option option) {
        return dynamic_cast<controls::GradColorChk&>(dialog.ControlOf(option));
    }
    controls::FlatTinyCombo& List(Option option) {
        return dynamic_cast<controls::FlatTinyCombo&>(dialog.ControlOf(option));
    }
    controls::HorizSlider& Slider() {
        return dynamic_cast<controls::HorizSlider&>(dialog.ControlOf(Option::HScrl));
    }
    // What the face of a list shows.
    std::string Shown(Option option) {
        for (const sim::Drawn& drawn : sim::paint(dialog.ControlOf(option), true)) {
            if (drawn.what == "text") return drawn.text;
        }
        return {};
    }
    std::vector<std::string> TakeCalls() { return std::exchange(host.calls, {}); }

    static std::string Stored(const std::string& name) {
        return sim::setting(settings::kSection, name).value_or("(none)");
    }
    static std::string Stored(settings::Key stored) { return Stored(InfoOf(stored).name); }
    static void Store(settings::Key stored, const std::string& value) {
        sim::putSetting(settings::kSection, InfoOf(stored).name, value);
    }

    struct Fresh {
        Fresh() { sim::reset(); }
    } fresh;
    platform::Window owner;
    controls::MsgBoxes msgBoxes;
    controls::BalloonTips tips;
    settings::Settings store;
    FakeHost host;
    settings::FrmOptions dialog{{store, host, msgBoxes, tips, "C:\\Kestrum\\"}};
    std::vector<std::string> messages;
};

using Calls = std::vector<std::string>;
