// What a person reads while a flow runs. The flows write log lines, which are English and for experts; some of them
// tell of a step that has a text of the catalog, or work on a file or folder whose name says enough.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "setup/dialog/setup_choice.h"

namespace velquin::setup {

struct ProgressStep {
    int textId = -1;            // of the catalog, -1 for none
    std::wstring subject = {};  // a file or folder; empty for none

    bool operator==(const ProgressStep&) const = default;
};

// The step that a line of the log tells of; nothing when the step before goes on.
std::optional<ProgressStep> progressStep(std::wstring_view logLine);

// "Install: Velquin.msi", with the step's text in the language of the person; one of both where the other is empty.
std::wstring progressLine(std::wstring_view text, std::wstring_view subject);

// "0:07", "12:34", "1:02:03".
std::wstring formatElapsed(int64_t seconds);

// The heading of the progress window of an action, as an id of the catalog.
int progressHeading(SetupAction action);

}  // namespace velquin::setup
