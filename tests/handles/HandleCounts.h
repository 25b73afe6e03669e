// How many objects of the system this process holds, counted by the system's own tables.
#pragma once

namespace handles {

// Kernel handles: files, mutexes, threads... Counted by asking each possible one. GetHandleInformation.
int Kernel();
// Bitmaps, device contexts, brushes, fonts... of every process; used entries of the table that GDI shares with all.
int Gdi();

}  // namespace handles
