// The running program's own file, which is copied elsewhere to be run with rights. A running program cannot be written
// to, but it can be renamed and another put in its place.
#pragma once

namespace velquin::setup {

// Holds the own file so that nobody can change, rename or delete it until the process ends. Further calls answer as the
// first. False with a log line when it cannot be held; nothing may be copied from it then.
bool holdOwnFile();

}  // namespace velquin::setup
