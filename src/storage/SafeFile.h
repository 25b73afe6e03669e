// Reading and writing the program's own files: whole files, old or new, never half of one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace storage {

enum class ReadResult {
    Read,
    Missing,  // there is no such file
    Failed,   // the file is there, but cannot be read: locked, no rights, larger than kMostBytes
};

// The largest file that is read or written: some ten thousand favourites. The rows of one of 100 MB would take
// seconds at every start, and a gigabyte of memory.
inline constexpr std::size_t kMostBytes = std::size_t{1} << 20;

// Reads a whole file into `content`, which is empty afterwards unless the result is Read.
ReadResult ReadWhole(const std::string& path, std::string& content);

// Replaces the content of a file: writes a temporary sibling (`path` + ".new", or ".new2" or ".new3"), flushes it
// and moves it over the file. Refuses what could not be read again. On failure, or when the program ends at any
// point, the file is what it was. False on failure.
bool WriteWhole(const std::string& path, std::string_view content);

// Writes a new file; one of that name is deleted first. Nothing is written to what is there: it may be a link to
// somebody else's file. False on failure, when none of that name is left or what was there could not be deleted.
bool WriteInPlaceOf(const std::string& path, std::string_view content);

// Deletes the temporary siblings of a file that an end of the program in the middle of WriteWhole has left behind.
// For the start of the one program that writes the file.
void CleanUpAfter(const std::string& path);

// The lines of `content`, which may end in CR LF or a lone LF; the last one may lack its end. What follows the
// last line end is a line only if it holds anything. The views live as long as `content`.
std::vector<std::string_view> SplitLines(std::string_view content);

}  // namespace storage
