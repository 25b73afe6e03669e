// What the main program and Kestrum Jr., the small program that applies one profile in the background, agree on:
// how each is called and what Kestrum Jr. is told at its start.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace favorites {

// Both lie in the same folder.
inline constexpr char kMainProgram[] = "Kestrum2.exe";
inline constexpr char kJrProgram[] = "Kestrum_Jr.exe";
// Caption of the hidden window that Kestrum Jr. is found by; the blanks are part of it.
inline constexpr char kJrCaption[] = "  Kestrum Jr.";

struct JrTask {
    int profile = 1;         // 1..5
    int enforceSeconds = 0;  // 0: without Enforce; at most 32767
    friend bool operator==(const JrTask&, const JrTask&) = default;
};

// "/My Favs 3", or "/My Favs 3 /Enforce 60".
std::string FormatJrTask(const JrTask& task);
// Such a text, in any letter case, with blanks around its parts and with quotes as a shell adds them; nullopt for
// anything else.
std::optional<JrTask> ParseJrTask(std::string_view arguments);

}  // namespace favorites
