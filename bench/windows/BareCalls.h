// The system calls that a tick cannot do without, bare: no rows, no text, no list. What a tick costs is measured
// against them.
#pragma once

namespace bench {

// Which processes there are, and of each its CPU times and its memory: two opens a process.
void BareFastUpdate();
// The same, and of each its path in full, its affinity and its priority class: five opens a process.
void BareFullRebuild();

}  // namespace bench
