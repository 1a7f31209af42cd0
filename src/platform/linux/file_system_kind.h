#pragma once

namespace qublet {

// What the file system of an open file or folder is good for.

// True for the kernel's own state shown as files (/proc, /sys). No one keeps anything there, and links in it lead
// back to everywhere.
bool ShowsTheKernel(int file);

// True where a lock on a file holds against everyone who can reach it: on the disks and in the memory of this
// machine. On other kinds, those of a network above all, a lock may be unknown to another machine; they give false.
bool LocksHoldForAll(int file);

// True where a copy may take less room than its bytes: they are shared with the original, or packed.
bool MayTakeLessRoom(int file);

}  // namespace qublet
