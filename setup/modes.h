// The setup program's run: reads the command line, chooses exactly one mode, runs it and gives its exit code.
#pragma once

struct HINSTANCE__;

namespace velquin::setup {

int runSetup(HINSTANCE__* instance);

}  // namespace velquin::setup
